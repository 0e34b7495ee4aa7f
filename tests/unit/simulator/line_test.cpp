#include "bench.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace corvid::simulator
