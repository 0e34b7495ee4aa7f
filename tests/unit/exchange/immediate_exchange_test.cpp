// The same faults with and without immediate reads.
#include "support/session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

constexpr const wchar_t* kPortSection = L"Config\\ModComm";

struct TimedChunk {
  std::string bytes;
  double seconds;  // behind the request
};

// Answers status requests, and each block by the same chunks.
class TimedPrinter : public LinePeer {
 public:
  void received(std::string_view bytes, SerialDouble& line) override {
    if (bytes == "\x05") return line.deliver("\x02\x60\x40\x03\x23");
    if (bytes == "\x06") return;
    ++blocks;
    for (const TimedChunk& chunk : answer) line.deliver(chunk.bytes, chunk.seconds);
  }
  std::vector<TimedChunk> answer;
  int blocks = 0;
};

struct TimedBench {
  explicit TimedBench(bool immediate) {
    if (immediate) world.settings.set(kPortSection, L"LecturaInmediata", L"True");
    world.settings.set(kSessionSection, L"TimeOut", L"2");
    world.clock.restSeconds = 0.001;
    world.serial.readsWaitOutTheirTimeout = true;
    world.serial.chunksRunTogether = true;
    world.serial.connect(&printer);
    session.state().SerialPrinter = L"KNOWN";
    session.Abrir(7);
  }
  World world;
  TimedPrinter printer;
  ProcessState process{world.environment()};
  PrinterSession session{process};
};

std::vector<TimedChunk> bytewise(const std::string& bytes, double gap) {
  std::vector<TimedChunk> chunks;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    chunks.push_back({bytes.substr(i, 1), gap * static_cast<double>(i)});
  }
  return chunks;
}

TEST(ImmediateExchange, FaultsEndAlikeEitherWay) {
  const Lines ab = {L"A", L"B"};
  const std::string block = "\2A\nB\3";
  const struct {
    std::vector<TimedChunk> answer;
    Lines fields;
    const char* reason;
  } kCases[] = {
      {{{block + "\x06", 0}}, ab, "check byte equal to ACK"},
      {{{block + "\x15", 0}}, ab, "check byte equal to NAK"},
      {{{block + "\x05", 0}}, ab, "check byte equal to ENQ"},
      {{{block + "\x02", 0}}, ab, "check byte equal to STX"},
      {{{block + "\x03", 0}}, ab, "check byte equal to ETX"},
      {bytewise(block + "?", 0.059), ab, "byte by byte, just under the quiet time"},
      {bytewise(block + "?", 0.061), ab, "byte by byte, just over the quiet time"},
      {{{block + "?" + block + "?", 0}}, ab, "two answers in one burst"},
      {{{"~~" + block + "?", 0}}, ab, "noise in front"},
      {{{"~~", 0}, {block + "?", 0.1}}, ab, "noise, a pause, the answer"},
      {{{"\x05", 0}, {block + "?", 0.001}}, ab, "ENQ, and the answer right behind"},
      {{{"\x02half", 0}}, {L"pfError"}, "half a block"},
      {{{"\x06", 0}}, {}, "merely acknowledged"},
      {bytewise(std::string(100, '~'), 0.05), {L"pfError"}, "never falls quiet"},
      {bytewise("~~~~" + block + "?", 0.05), ab, "noise without a pause, then the answer"},
  };
  for (const auto& item : kCases) {
    for (const bool immediate : {false, true}) {
      TimedBench bench(immediate);
      bench.printer.answer = item.answer;
      EXPECT_EQ(bench.session.exchange().GetResponse(L"S1"), item.fields)
          << item.reason << (immediate ? ", immediate" : ", default");
    }
  }
}

TEST(ImmediateExchange, LateAnswerIsNotTheNextOnes) {
  for (const bool immediate : {false, true}) {
    TimedBench bench(immediate);
    bench.printer.answer = {{"\x15", 0.5}};
    bench.session.exchange().SendDirect(L"w");
    bench.world.clock.advance(1);
    bench.printer.answer = {{"\x06", 0}};
    bench.world.serial.clearLog();
    EXPECT_EQ(bench.session.Execute(L"w"), 0);
    // By default the late NAK passes for the status, which is then asked for again.
    EXPECT_EQ(bench.world.serial.count("writeFile"), immediate ? 2U : 3U);
    EXPECT_EQ(bench.printer.blocks, 2);
  }
}

TEST(ImmediateExchange, CommandCostsNoReadTimeOut) {
  for (const bool immediate : {false, true}) {
    TimedBench bench(immediate);
    bench.printer.answer = {{"\x06", 0.01}};
    bench.world.serial.clearLog();
    const double start = bench.world.clock.total();
    EXPECT_EQ(bench.session.Execute(L"w"), 0);
    const double seconds = bench.world.clock.total() - start;
    EXPECT_EQ(bench.world.serial.count("readFile"), 2U) << "one for the status, one for the answer";
    if (immediate) {
      EXPECT_LT(seconds, 0.015);
    } else {
      EXPECT_NEAR(seconds, 2.01, 0.005);
    }
  }
}

}  // namespace
}  // namespace corvid
