// What stands on the line, what goes wrong there, and the options that say so.
#include "bench.h"
#include "simulator/line/misbehaviour.h"
#include "simulator/line/outbox.h"
#include "simulator/program/options.h"
#include "simulator/program/steering.h"

#include <gtest/gtest.h>

#include <sstream>

namespace corvid::simulator {
namespace {

TEST(Line, StatusFollowsTheOpenDocument) {
  Bench bench;
  EXPECT_EQ(bench.raw("\x05"), "\x02\x60\x40\x03\x23");
  EXPECT_EQ(bench.command(item(" ", 100, 1000, "PAN")), kAckAnswer);
  EXPECT_EQ(bench.raw("\x05"), framed("\x61\x40"));
  EXPECT_EQ(bench.command("101"), kAckAnswer);
  EXPECT_EQ(bench.command("800TEXT"), kAckAnswer);
  EXPECT_EQ(bench.raw("\x05"), framed("\x62\x40"));
  EXPECT_EQ(bench.command("810END"), kAckAnswer);
  EXPECT_EQ(bench.raw("\x05"), framed("\x60\x40"));
}

TEST(Line, CommandsAreFoundInAnyPieces) {
  const struct {
    const char* reason;
    std::vector<std::string> pieces;
    std::string answer;
    int drawers;
  } kCases[] = {
      {"whole", {"\x02w\x03t"}, "\x06", 1},
      {"byte by byte", {"\x02", "w", "\x03", "t"}, "\x06", 1},
      {"wrong check byte", {"\x02w\x03u"}, "\x15", 0},
      {"two at once", {"\x02w\x03t\x02w\x03t"}, "\x06\x06", 2},
      {"noise in front", {"abc\x02w\x03t"}, "\x06", 1},
      {"begun anew", {"\x02xyz\x02w\x03t"}, "\x06", 1},
      {"dropped by a status request", {"\x02wxy\x05"}, framed("`@"), 0},
      {"nothing to acknowledge", {"\x06\x15\x04"}, "", 0},
      {"endless block", {"\x02", std::string(5000, 'w'), "\x03t"}, "\x15", 0},
  };
  for (const auto& c : kCases) {
    Bench bench;
    std::string answer;
    for (const std::string& piece : c.pieces) answer += bench.raw(piece);
    EXPECT_EQ(answer, c.answer) << c.reason;
    EXPECT_EQ(bench.printer.machine().drawerOpenings, c.drawers) << c.reason;
  }
}

std::string zReports(Bench& bench, int count) {
  for (int i = 0; i < count; ++i) {
    if (bench.command("I0Z") != kAckAnswer) return "refused";
  }
  return "";
}

TEST(Line, FurtherBlocksWaitForTheHostsAck) {
  Bench bench;
  ASSERT_EQ(zReports(bench, 3), "");
  const std::string first = bench.command("U3A000001000003");
  EXPECT_EQ(first.substr(0, 5), "\0020001");
  EXPECT_EQ(first.at(first.size() - 2), kEtb);
  EXPECT_EQ(first.back(), checkByte(std::string_view(first).substr(1, first.size() - 2)));
  const std::string second = bench.raw("\x06");
  EXPECT_EQ(second.substr(0, 5), "\0020002");
  EXPECT_EQ(bench.raw("\x15"), second) << "refused, it comes again";
  const std::string third = bench.raw("\x06");
  EXPECT_EQ(third.at(third.size() - 2), kEtx);
  EXPECT_EQ(bench.raw("\x06"), "") << "nothing follows the last";
}

TEST(Line, ANewMessageDropsTheBlocksThatWait) {
  for (const std::string message : {"\x05", "\x04", "\x02w\x03t", "\x02w\x03u"}) {
    Bench bench;
    ASSERT_EQ(zReports(bench, 2), "");
    EXPECT_NE(bench.command("U3A000001000002"), kNakAnswer);
    bench.raw(message);
    EXPECT_EQ(bench.raw("\x06"), "") << readable(message);
  }
}

TEST(Replies, RatesWithAndWithoutTheLevy) {
  Configuration configuration;
  configuration.rates[2] = *parsedRate("13100");
  configuration.flags[21] = 30;
  Bench five(configuration);
  const std::string flags = std::string(42, '0') + "30" + std::string(84, '0');
  EXPECT_EQ(five.command("S3"), framed("21600\n20800\n13100\n20300\n" + flags));
  configuration.igtf.reset();
  Bench four(configuration);
  EXPECT_EQ(four.command("S3"), framed("21600\n20800\n13100\n" + flags));
}

using std::chrono::milliseconds;

const std::string kStatus = "\x02\x60\x40\x03\x23";

struct SteeredBench : Bench {
  // The program's answer to a line of steering.
  std::string steer(std::string_view line) {
    std::ostringstream out;
    Steering(printer, out).obey(line);
    return out.str();
  }
};

TEST(Misbehaviour, IsSeenOnTheLineAndEndsWhenItsTimesAreOver) {
  const std::string drawer = "\x02w\x03t";
  const struct {
    const char* steering;
    std::string sent;
    std::vector<std::string> answers;  // to the same bytes, again and again
  } kCases[] = {
      {"refuse 2", drawer, {"\x15", "\x15", "\x06"}},
      {"refuse 1", "\x05", {kStatus, kStatus}},
      {"silent 2", "\x05", {"", "", kStatus}},
      {"lose 1", drawer, {"", "\x06"}},
      {"lose-ack 1", drawer, {"", "\x06"}},
      {"lose-ack 1", "\x02?\x03<", {"", "\x15"}},
      {"lose-ack 1", "\x05", {kStatus}},
      {"enq-first 1", drawer, {"\x05\x06", "\x06"}},
      {"end-eot 1", "\x05", {"\x02\x60\x40\x04\x24", kStatus}},
      {"corrupt-check 1", "\x05", {"\x02\x60\x40\x03\x22", kStatus}},
      {"corrupt-data 1 1", "\x05", {"\x02\x61\x40\x03\x23", kStatus}},
      {"corrupt-data 1 99", "\x05", {"\x02\x60\x40\x03\x22", kStatus}},
      {"noise 1 \\x00zz", drawer, {std::string("\0zz\x06", 4), "\x06"}},
  };
  for (const auto& c : kCases) {
    SteeredBench bench;
    EXPECT_EQ(bench.steer(c.steering), "ok\n");
    for (const std::string& answer : c.answers) EXPECT_EQ(bench.raw(c.sent), answer) << c.steering;
  }
}

std::vector<std::string> pieces(const std::vector<Chunk>& chunks) {
  std::vector<std::string> bytes;
  bytes.reserve(chunks.size());
  for (const Chunk& chunk : chunks) bytes.push_back(chunk.bytes);
  return bytes;
}

TEST(Misbehaviour, AnswersComeInPiecesWithGaps) {
  SteeredBench bench;
  bench.steer("bytewise 1 7");
  const auto bytes = bench.printer.receive("\x05");
  ASSERT_EQ(pieces(bytes), (std::vector<std::string>{"\x02", "\x60", "\x40", "\x03", "\x23"}));
  EXPECT_EQ(bytes[0].gap, milliseconds(0));
  EXPECT_EQ(bytes[4].gap, milliseconds(7));

  bench.steer("split 2 4 30");
  const auto halves = bench.printer.receive("\x05");
  ASSERT_EQ(pieces(halves), (std::vector<std::string>{"\x02\x60\x40\x03", "\x23"}));
  EXPECT_EQ(halves[1].gap, milliseconds(30));
  bench.steer("split 1 99");
  EXPECT_EQ(pieces(bench.printer.receive("\x05")),
            (std::vector<std::string>{"\x02\x60\x40\x03", "\x23"}));
}

TEST(Misbehaviour, ToldAnswersReplaceWhatThePrinterKnows) {
  SteeredBench bench;
  EXPECT_EQ(bench.steer("answer U3A A\\nB"), "ok\n");
  EXPECT_EQ(bench.steer("more U3A C"), "ok\n");
  EXPECT_EQ(bench.steer("answer U3A9 nine"), "ok\n");
  EXPECT_EQ(bench.command("U3A000001000002"), framed("A\nB", kEtb));
  EXPECT_EQ(bench.raw("\x06"), framed("C"));
  EXPECT_EQ(bench.command("U3A9"), framed("nine")) << "the longer prefix counts";
  EXPECT_EQ(bench.steer("answer U3A"), "ok\n");
  EXPECT_EQ(bench.command("U3A000001000002"), kNakAnswer);
}

TEST(Options, AreReadOrRefusedWithTheirName) {
  const ParsedOptions good =
      parsedOptions({"--pty",          "link",     "--rates",   "11600,20800,23100",
                     "--igtf",         "none",     "--flag",    "21=30",
                     "--flag",         "63=7",     "--cashier", "9",
                     "--model",        "short",    "--clock",   "2026-03-14 10:30:15",
                     "--do",           "refuse 1", "--do",      "baud 9600",
                     "--last-invoice", "41",       "--tcp",     "127.0.0.1:4000"});
  EXPECT_EQ(good.error, "");
  EXPECT_EQ(good.options.pty, "link");
  EXPECT_TRUE(good.options.configuration.rates[0].isIncluded);
  EXPECT_FALSE(good.options.configuration.igtf);
  EXPECT_EQ(good.options.configuration.flags[21], 30);
  EXPECT_EQ(good.options.configuration.flags[63], 7);
  EXPECT_EQ(good.options.configuration.model.counters, CountersLayout::Short);
  EXPECT_EQ(good.options.configuration.lastInvoice, 41);
  EXPECT_EQ(good.options.clock->minute, 30);
  EXPECT_EQ(good.options.tcp->host, "127.0.0.1");
  EXPECT_EQ(good.options.tcp->port, 4000);
  EXPECT_EQ(good.options.steering, (std::vector<std::string>{"refuse 1", "baud 9600"}));

  EXPECT_EQ(parsedOptions({"--dance", "1"}).error, "unknown option --dance");
  EXPECT_EQ(parsedOptions({"--serial"}).error, "--serial needs a value");
  EXPECT_EQ(parsedOptions({"--replay", "dump", "--do", "refuse 1"}).error,
            "--replay does not go with --paper, --memory, --script and --do");
  using Pair = std::pair<const char*, const char*>;
  for (const auto& [name, value] :
       {Pair{"--rates", "21600,20800"}, Pair{"--rates", "31600,20800,23100"},
        Pair{"--flag", "64=1"}, Pair{"--flag", "21"}, Pair{"--cashier", "100"},
        Pair{"--model", "none"}, Pair{"--clock", "noon"}, Pair{"--igtf", "2"},
        Pair{"--tcp", "127.0.0.1"}, Pair{"--tcp", "127.0.0.1:65536"},
        Pair{"--tcp", "127.0.0.256:4000"}, Pair{"--tcp", "1.2.3.4.5:4000"}}) {
    EXPECT_EQ(parsedOptions({name, value}).error,
              std::string("bad value for ") + name + ": " + value);
  }
}

TEST(Outbox, HoldsEachPieceUntilItsTime) {
  Outbox outbox;
  const Moment start{};
  outbox.add({{milliseconds(0), "a"}, {milliseconds(10), "b"}}, start);
  outbox.add({{milliseconds(5), "c"}}, start + milliseconds(1));
  EXPECT_EQ(outbox.takeDue(start + milliseconds(1)), "a");
  EXPECT_EQ(outbox.nextDue(), start + milliseconds(10));
  EXPECT_EQ(outbox.takeDue(start + milliseconds(9)), "");
  EXPECT_EQ(outbox.takeDue(start + milliseconds(14)), "b") << "a later answer waits its turn";
  EXPECT_EQ(outbox.takeDue(start + milliseconds(15)), "c");
  EXPECT_EQ(outbox.nextDue(), std::nullopt);
  outbox.add({{milliseconds(1), "d"}, {milliseconds(10), "e"}}, start + milliseconds(20));
  outbox.hurry(start + milliseconds(22));
  EXPECT_EQ(outbox.takeDue(start + milliseconds(22)), "de");
}

}  // namespace
}  // namespace corvid::simulator
