// Reads that do not wait out the port's read time-out.
#include "port_bench.h"
#include "protocol/whole_answer.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {
namespace {

TEST(WholeAnswer, IsOneControlByteOrABlockWithItsCheckByte) {
  const struct {
    std::string_view bytes;
    bool isWhole;
    const char* reason;
  } kCases[] = {
      {"", false, "nothing yet"},
      {"\x06", true, "ACK"},
      {"\x15", true, "NAK"},
      {"\x05", true, "ENQ"},
      {"\x05\x02", true, "what stands in front decides"},
      {"\x02", false, "a block begins"},
      {"\x02\x60\x40\x03", false, "its check byte is missing"},
      {"\x02\x60\x40\x03\x23", true, "a status block"},
      {"\2A\x17V", true, "more blocks follow"},
      {"\2A\4E", true, "ended by EOT"},
      {"\x02\x06\x15", false, "control bytes inside a block are no answer"},
      {"\2A\3\3", true, "check byte equal to ETX"},
      {"\2A\3\6", true, "check byte equal to ACK"},
      {"\2A\3\2", true, "check byte equal to STX"},
      {"~~\2A\3B", true, "noise in front"},
      {"~\x06", false, "an ACK behind noise is noise too"},
      {"\x03", false, "an end without a beginning"},
  };
  for (const auto& item : kCases) {
    EXPECT_EQ(isWholeAnswer(item.bytes), item.isWhole) << item.reason;
  }
}

struct ImmediateBench : PortBench {
  ImmediateBench() {
    world.settings.set(kDumpSection, L"LecturaInmediata", L"True");
    world.clock.restSeconds = 0.001;
    openSeven();
  }
  std::string read(double patience = kUnlimitedPatience) {
    std::wstring data;
    comm.CommRead(7, data, 4096, patience);
    return windows1252().encode(data);
  }
};

TEST(ImmediateRead, AsksForExactlyWhatIsWaiting) {
  ImmediateBench bench;
  bench.world.serial.deliver("\x02\x60");
  bench.world.serial.deliver("\x40\x03\x23", 0.01);
  EXPECT_EQ(bench.read(), "\x02\x60\x40\x03\x23");
  EXPECT_EQ(bench.world.serial.numbersOf("readFile"), (std::vector<std::uint32_t>{2, 3}));
  EXPECT_EQ(bench.world.host.count, 1) << "the host runs once a read";
  EXPECT_EQ(bench.read(), "") << "nothing waits";
}

TEST(ImmediateRead, QuietLineEndsAPartOfAnAnswer) {
  ImmediateBench bench;
  bench.world.serial.deliver("\x02half");
  bench.world.serial.deliver(" and", 0.055);
  bench.world.serial.deliver(" late\x03?", 0.055 + 0.07);
  EXPECT_EQ(bench.read(), "\x02half and");
  EXPECT_NEAR(bench.world.clock.total(), 0.115, 0.002);
  bench.world.clock.advance(0.02);
  EXPECT_EQ(bench.read(), " late\x03?");
}

TEST(ImmediateRead, LineThatNeverFallsQuietIsCutAtTheBufferOrAtTheEndOfPatience) {
  ImmediateBench full;
  for (int i = 0; i < 50; ++i) full.world.serial.deliver(std::string(100, '~'), i * 0.01);
  EXPECT_EQ(full.read().size(), 4096U);
  const std::vector<std::uint32_t> asked = full.world.serial.numbersOf("readFile");
  EXPECT_EQ(std::accumulate(asked.begin(), asked.end(), 0U), 4096U);

  ImmediateBench patient;
  for (int i = 0; i < 50; ++i) patient.world.serial.deliver("~", i * 0.05);
  EXPECT_EQ(patient.read(1.0).size(), 21U);
}

TEST(ImmediateRead, FailureBehindTheFirstBytesKeepsThem) {
  ImmediateBench bench;
  bench.world.serial.deliver("\x02half");
  bench.world.serial.failNth("clearCommError", 2, 6);
  EXPECT_EQ(bench.read(), "\x02half");
  bench.world.serial.failNth("clearCommError", 1, 6);
  std::wstring data;
  EXPECT_EQ(bench.comm.CommRead(7, data, 4096), -1);
}

TEST(ImmediateRead, DiscardTakesALateAnswerOffTheLine) {
  ImmediateBench bench;
  bench.world.serial.deliver("\x06late");
  EXPECT_EQ(bench.comm.CommDiscard(7), L"\x06late");
  EXPECT_EQ(bench.comm.CommDiscard(7), L"");
}

TEST(ImmediateRead, SettingIsReadWhenThePortOpens) {
  PortBench bench;
  bench.openSeven();
  bench.world.settings.set(kDumpSection, L"LecturaInmediata", L"True");
  bench.world.serial.deliver("late");
  EXPECT_EQ(bench.comm.CommDiscard(7), L"") << "nothing of it while it is off";
  EXPECT_EQ(bench.world.serial.calls(), std::vector<std::string>{});
  bench.comm.CommClose(7);
  bench.openSeven();
  bench.world.serial.deliver("late");
  EXPECT_EQ(bench.comm.CommDiscard(7), L"late");
}

}  // namespace
}  // namespace corvid
