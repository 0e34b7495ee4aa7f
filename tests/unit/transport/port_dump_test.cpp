// What the port dump writes, when it is on, and what a file that cannot be opened brings.
#include "port_bench.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(HexDump, LinesHoldSixteenBytesInTwoColumns) {
  const struct {
    std::string bytes;
    std::string lines;
    const char* reason;
  } kCases[] = {
      {"", "", "no byte, no line"},
      {std::string("\x02\x60\x40\x03\x23", 5),
       "02 60 40 03 23                                  .`@.#\r\n", "padded to 48 columns"},
      {"0123456789ABCDEF", "30 31 32 33 34 35 36 37 38 39 41 42 43 44 45 46 0123456789ABCDEF\r\n",
       "one full line"},
      {"0123456789ABCDEFG",
       "30 31 32 33 34 35 36 37 38 39 41 42 43 44 45 46 0123456789ABCDEF\r\n"
       "47                                              G\r\n",
       "both columns start again"},
      {std::string("\x00\x1F\x20\x7F\x80\xFF", 6),
       "00 1F 20 7F 80 FF                               .. \x7F\x80\xFF\r\n",
       "only what sorts below the blank is hidden"},
  };
  for (const auto& item : kCases) EXPECT_EQ(hexDump(item.bytes), item.lines) << item.reason;
}

struct DumpBench : PortBench {
  TempFolder folder;
  std::wstring file = folder.file(L"line.txt");
  DumpBench() { dumpTo(file); }
};

TEST(PortDumpFile, TellsWhatWasSentAndRead) {
  DumpBench bench;
  bench.openSeven();
  bench.world.clock.setNow(*parseDate(L"2026-03-04 05:06:07"));
  bench.comm.CommWrite(7, L"\x05");
  bench.world.serial.deliver("\x02`@\x03#");
  std::wstring data;
  bench.comm.CommRead(7, data, 4096);
  bench.comm.CommRead(7, data, 4096);
  const std::string expected =
      "Send 04-03-2026 05:06:07\r\n"
      "05                                              .\r\n"
      "Read 04-03-2026 05:06:07\r\n"
      "02 60 40 03 23                                  .`@.#\r\n";
  EXPECT_EQ(bytesOf(bench.file), expected) << "complete while the port is still open";

  bench.comm.CommClose(7);
  EXPECT_FALSE(bench.dump.isOn());
  bench.open(7);
  bench.comm.CommWrite(7, L"\x06");
  EXPECT_EQ(bytesOf(bench.file), expected + "Send 04-03-2026 05:06:07\r\n" + hexDump("\x06"));
}

TEST(PortDumpFile, OpensBehindAFailedOpeningToo) {
  DumpBench bench;
  bench.world.serial.failNth("createFile", 1, 2);
  bench.open(7);
  EXPECT_TRUE(bench.dump.isOn());
}

TEST(PortDumpFile, EveryOpeningReadsTheSettingsAnew) {
  DumpBench bench;
  bench.open(7);
  const std::wstring second = bench.folder.file(L"second.txt");
  bench.dumpTo(second);
  bench.open(8);
  bench.comm.CommWrite(7, L"a");
  EXPECT_EQ(bytesOf(bench.file), "");
  EXPECT_NE(bytesOf(second), "");
  bench.world.settings.set(kDumpSection, L"DEBUG", L"0");
  bench.open(8);
  EXPECT_FALSE(bench.dump.isOn());
}

TEST(PortDumpFile, FailedTransfersAreNotInIt) {
  DumpBench bench;
  bench.openSeven();
  bench.world.serial.failNth("writeFile", 1, 5);
  bench.comm.CommWrite(7, L"a");
  EXPECT_EQ(bytesOf(bench.file), "");
}

TEST(PortDumpFile, IsOnForAnythingButZeroWhenItHasAFile) {
  const struct {
    std::wstring debug;
    bool hasFile;
    bool isOn;
  } kCases[] = {
      {L"", true, false},     {L"0", true, false},  {L"1", true, true},
      {L"False", true, true}, {L"1", false, false},
  };
  for (const auto& item : kCases) {
    DumpBench bench;
    if (!item.hasFile) bench.dumpTo(L"");
    bench.world.settings.set(kDumpSection, L"DEBUG", item.debug);
    bench.open(7);
    EXPECT_EQ(bench.dump.isOn(), item.isOn) << testing::PrintToString(item.debug);
    EXPECT_TRUE(bench.world.dialog.shown.empty());
  }
}

TEST(PortDumpFile, ThatCannotBeOpenedIsToldAndTheDumpStaysOff) {
  DumpBench bench;
  const std::wstring file = bench.folder.file(L"missing") + L"/line.txt";
  bench.dumpTo(file);
  EXPECT_EQ(bench.open(7), 0) << "the port itself works";
  ASSERT_EQ(bench.world.dialog.shown.size(), 1U);
  const ShownMessage& box = bench.world.dialog.shown.front();
  const std::wstring head =
      L"Imposible abrir el archivo " + file + L". Traza inhabilitada\r\nERR: ";
  EXPECT_TRUE(box.text.starts_with(head)) << testing::PrintToString(box.text);
  EXPECT_GT(box.text.size(), head.size()) << "the reason stands behind it";
  EXPECT_EQ(box.title, L"modComm");
  EXPECT_EQ(box.icon, MessageIcon::Critical);
  EXPECT_FALSE(bench.dump.isOn());
  EXPECT_EQ(bench.comm.CommWrite(7, L"a"), 1);
}

}  // namespace
}  // namespace corvid
