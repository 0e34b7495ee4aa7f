// Port dumps of the field: which count, and what a replayed one answers.
#include "simulator/program/replay.h"

#include "simulator/program/program.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace corvid::simulator {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::seconds;

// A record whose bytes are given twice, as a dump does.
std::string record(const std::string& head, const std::string& hexadecimal,
                   const std::string& text) {
  return head + "\r\n" + hexadecimal + std::string(48 - hexadecimal.size(), ' ') + text + "\r\n";
}
std::string at(const char* label, int second) {
  return std::string(label) + " 14-03-2026 10:30:" + (second < 10 ? "0" : "") +
         std::to_string(second);
}
std::string enquiry(int second) { return record(at("Send", second), "05 ", "."); }
std::string status(int second) { return record(at("Read", second), "02 60 40 03 23 ", ".`@.#"); }
std::string drawer(int second) { return record(at("Send", second), "02 77 03 74 ", ".w.t"); }
std::string ack(int second) { return record(at("Read", second), "06 ", "."); }

std::string reasonAgainst(std::string_view text) {
  try {
    static_cast<void>(parsedDump(text));
  } catch (const UnusableDump& dump) {
    return dump.what();
  }
  return "none";
}

TEST(Dump, DamageIsToldWithItsLine) {
  const std::string kHead = at("Read", 0) + "\r\n";
  const std::string kSixteen =
      "30 31 32 33 34 35 36 37 38 39 41 42 43 44 45 46 0123456789ABCDEF\r\n";
  const struct {
    std::string text;
    const char* reason;
  } kCases[] = {
      {enquiry(0) + status(0), "none"},
      {"Send 14-03-2026 10:30:00 tcp:box:4000\n05" + std::string(46, ' ') + ".\n", "none"},
      {kHead + kSixteen + "47" + std::string(46, ' ') + "G\r\n", "none"},
      {record(at("Read", 0), "7F 80 FF ", "\x7F\x80\xFF"), "none"},
      {"", "line 0: there is no record"},
      {"dance\r\n", "line 1: no line of a port dump"},
      {enquiry(0) + "\r\n", "line 3: no line of a port dump"},
      {"05" + std::string(46, ' ') + ".\r\n", "line 1: no line of a port dump"},
      {kHead, "line 1: a record without bytes"},
      {kHead + enquiry(0), "line 2: a record without bytes"},
      {enquiry(0).substr(0, 60), "line 2: the file ends in the middle of a line"},
      {record(at("Read", 0), "06 ", "x"), "line 2: no line of a port dump"},
      {record(at("Read", 0), "4g ", "L"), "line 2: no line of a port dump"},
      {kHead + "06 .\r\n", "line 2: no line of a port dump"},
      {ack(0) + kSixteen, "line 3: no line of a port dump"},
      {"Read 14-13-2026 10:30:00\r\n", "line 1: no line of a port dump"},
      {"Read 2026-03-14 10:30:00\r\n", "line 1: no line of a port dump"},
      {"Read 14-03-2026 10:30:00x\r\n", "line 1: no line of a port dump"},
  };
  for (const auto& [text, reason] : kCases) EXPECT_EQ(reasonAgainst(text), reason) << text;
}

TEST(Dump, MixedPortsAreToldAndASlowPrinterIsNot) {
  const std::string kOther =
      "Send 14-03-2026 10:30:00 tcp:box:4000\r\n05" + std::string(46, ' ') + ".\r\n";
  const struct {
    const char* reason;
    std::string text;
    int line;  // 0: one port
  } kCases[] = {
      {"two addresses", enquiry(0) + kOther, 3},
      {"two status requests", enquiry(0) + enquiry(0) + status(0) + status(0), 7},
      {"a status before the ACK", drawer(0) + enquiry(0) + status(0) + ack(0), 7},
      {"an ACK between", enquiry(0) + drawer(0) + ack(0) + status(0), 7},
      {"a block sent before the status", enquiry(0) + drawer(0) + status(0) + ack(0), 7},
      {"one after the other", enquiry(0) + status(0) + drawer(0) + ack(0) + enquiry(0), 0},
      {"asked again after the time-out", enquiry(0) + enquiry(1) + status(1) + status(1), 0},
      {"an ACK after the time-out", drawer(0) + enquiry(1) + status(1) + ack(1), 0},
      {"a command that nobody awaits", drawer(0) + enquiry(0) + ack(0) + status(0), 0},
      {"an ACK that never came", drawer(0) + enquiry(0) + status(0) + drawer(0) + ack(0), 0},
      {"reopened at once, one answer", enquiry(0) + enquiry(0) + status(0) + drawer(0) + ack(0), 0},
  };
  for (const auto& [reason, text, line] : kCases) {
    const std::string told = reasonAgainst(text);
    EXPECT_EQ(told.substr(0, told.find(':')), line == 0 ? "none" : "line " + std::to_string(line))
        << reason;
  }
}

struct Piece {
  microseconds gap;
  std::string bytes;
  bool operator==(const Piece&) const = default;
};
std::vector<Piece> pieces(const std::vector<Chunk>& chunks) {
  std::vector<Piece> all;
  for (const Chunk& chunk : chunks) all.push_back({chunk.gap, chunk.bytes});
  return all;
}

const std::string kLateAnswer = record(at("Read", 0), "7A ", "z") + enquiry(1) + enquiry(2) +
                                record(at("Read", 5), "02 60 ", ".`") +
                                record(at("Read", 5), "40 03 23 ", "@.#") + drawer(6) + ack(7);

TEST(Replay, GivesTheChunksAfterTheSameWritesWithTheirSilences) {
  for (const auto silences : {Replay::Silences::AsDumped, Replay::Silences::None}) {
    const bool isTimed = silences == Replay::Silences::AsDumped;
    Replay replay(parsedDump(kLateAnswer), silences);
    EXPECT_EQ(pieces(replay.begin()), (std::vector<Piece>{{seconds(0), "z"}}));
    EXPECT_TRUE(replay.receive("\x05").empty()) << "it had no answer";
    EXPECT_EQ(
        pieces(replay.receive("\x05")),
        (std::vector<Piece>{{seconds(isTimed ? 3 : 0), "\x02`"}, {milliseconds(1), "@\x03#"}}));
    EXPECT_TRUE(replay.receive("\x02w").empty());
    EXPECT_FALSE(replay.isAtEnd());
    EXPECT_EQ(pieces(replay.receive("\x03t")),
              (std::vector<Piece>{{seconds(isTimed ? 1 : 0), "\x06"}}));
    EXPECT_TRUE(replay.isAtEnd());
    EXPECT_EQ(replay.report(), "the host followed the dump to its end");
  }
}

TEST(Replay, TellsWhereTheHostDepartsAndIsSilentFromThere) {
  const struct {
    std::vector<std::string> sent;
    const char* report;
  } kCases[] = {
      {{}, "the host has not come past line 3 of the dump, where it sent [ENQ]"},
      {{"\x05", "\x05\x02w"},
       "the host has not come past line 11 of the dump, where it sent [STX]w[ETX]t"},
      {{"\x06"}, "the host departs at line 3 of the dump: there it sent [ENQ], now [ACK]"},
      {{"\x05\x05", "\x02", "e\x03"},
       "the host departs at line 11 of the dump: there it sent [STX]w[ETX]t, now [STX]e[ETX]"},
      {{"\x05\x05\x02w\x03t\x05", "\x05"},
       "the host departs at the end of the dump: there it sent nothing more, now [ENQ]"},
  };
  for (const auto& [sent, report] : kCases) {
    Replay replay(parsedDump(kLateAnswer), Replay::Silences::None);
    static_cast<void>(replay.begin());
    for (const std::string& bytes : sent) static_cast<void>(replay.receive(bytes));
    EXPECT_EQ(replay.report(), report);
    EXPECT_TRUE(!replay.isDeparted() || replay.receive("\x05").empty());
  }
}

TEST(Replay, AsAProgramGivesLateReadsBeforeTheNextAnswerAndTellsTheEnd) {
  const TempFolder folder;
  Options options;
  options.replay = (folder.path() / "dump").string();
  std::ofstream(options.replay, std::ios::binary)
      << enquiry(0) << status(0) << ack(9) << drawer(9) << ack(9);
  const struct {
    std::string second;
    std::string answer;
    const char* said;
    int code;
  } kCases[] = {
      {"\x02w\x03t", "\x06\x06", "replay: the host followed the dump to its end\n", 0},
      {"\x05", "",
       "replay: the host departs at line 7 of the dump: there it sent [STX]w[ETX]t, now [ENQ]\n",
       3},
      {"", "",
       "replay: the host has not come past line 7 of the dump, where it sent [STX]w[ETX]t\n", 3},
  };
  for (const auto& item : kCases) {
    std::ostringstream out;
    Program program(options, out);
    const Moment start{};
    program.receive("\x05", start);
    EXPECT_EQ(program.takeDue(start + seconds(1)), "\x02`@\x03#");
    program.receive(item.second, start + seconds(1));
    EXPECT_EQ(program.takeDue(start + seconds(1)), item.answer);
    EXPECT_EQ(program.finish(), item.code);
    EXPECT_EQ(out.str(), item.said);
    EXPECT_TRUE(program.steer("refuse 1\n"));
    EXPECT_FALSE(program.steer("quit\n"));
  }
}

}  // namespace
}  // namespace corvid::simulator
