// What the port dump writes, when it is on, and what a file that cannot be opened brings.
#include "port_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

struct DumpBench : OpenPort {
  DumpBench() { dumpTo(L"line.txt"); }
  void dumpTo(const std::wstring& file, const std::wstring& debug = L"1") {
    world.settings.set(kPortSection, L"DEBUG", debug);
    world.settings.set(kPortSection, L"DumpFile", file);
  }
  void openDump() { dump.open(settings, world.dialog); }
  [[nodiscard]] std::string file(const wchar_t* name = L"line.txt") {
    return world.files.contents[std::wstring(L"C:\\host\\") + name];
  }
};

TEST(PortDumpFile, TellsWhatWasSentAndReadInOneWriteEach) {
  DumpBench bench;
  bench.openDump();
  bench.world.clock.setNow(*parseDate(L"2026-03-04 05:06:07"));
  bench.comm.CommWrite(7, "\x05");
  bench.world.serial.deliver("\x02`@\x03#");
  std::string data;
  bench.comm.CommRead(7, data, 4096);
  bench.comm.CommRead(7, data, 4096);
  bench.world.serial.deliver("late");
  static_cast<void>(bench.comm.CommDiscard(7));
  bench.world.serial.failNth("writeFile", 1, 5);
  bench.comm.CommWrite(7, "not sent");
  const std::string expected = "Send 04-03-2026 05:06:07\r\n" + hexDump("\x05") +
                               "Read 04-03-2026 05:06:07\r\n" + hexDump("\x02`@\x03#") +
                               "Read 04-03-2026 05:06:07\r\n" + hexDump("late");
  EXPECT_EQ(bench.file(), expected) << "complete while the port is still open";
  EXPECT_EQ(bench.world.files.writes, 3);
  bench.comm.CommClose(7);
  EXPECT_FALSE(bench.dump.isOn());
  EXPECT_EQ(bench.world.files.openFiles, 0);
}

TEST(PortDumpFile, EveryOpeningReadsTheSettingsAnew) {
  DumpBench bench;
  bench.openDump();
  bench.dumpTo(L"second.txt");
  bench.openDump();
  bench.comm.CommWrite(7, "a");
  EXPECT_EQ(bench.file(), "");
  EXPECT_NE(bench.file(L"second.txt"), "");
  EXPECT_EQ(bench.world.files.openFiles, 1);
  bench.dumpTo(L"second.txt", L"0");
  bench.openDump();
  EXPECT_EQ(bench.world.files.openFiles, 0);
}

TEST(PortDumpFile, IsOnForAnythingButZeroWhenItHasAFile) {
  const struct {
    std::wstring debug;
    std::wstring file;
    bool isOn;
  } kCases[] = {
      {L"", L"f", false},     {L"0", L"f", false}, {L"1", L"f", true},
      {L"False", L"f", true}, {L"1", L"", false},  {L"1", L"\\\\server\\f", false},
  };
  for (const auto& item : kCases) {
    DumpBench bench;
    bench.dumpTo(item.file, item.debug);
    bench.openDump();
    EXPECT_EQ(bench.dump.isOn(), item.isOn) << testing::PrintToString(item.debug);
    EXPECT_TRUE(bench.world.dialog.shown.empty());
  }
}

TEST(PortDumpFile, ThatCannotBeOpenedIsToldAndOneThatFailsIsClosed) {
  DumpBench bench;
  bench.world.faults.failNth("openFile", 1, 5);
  bench.openDump();
  const ShownMessage expected = {
      L"Imposible abrir el archivo C:\\host\\line.txt. Traza inhabilitada\r\n"
      L"ERR: system message 5",
      L"modComm", MessageIcon::Critical};
  EXPECT_EQ(bench.world.dialog.shown, std::vector{expected});
  EXPECT_FALSE(bench.dump.isOn());
  bench.openDump();
  bench.world.faults.failNth("appendFile", 1, 112);
  EXPECT_EQ(bench.comm.CommWrite(7, "a"), 1) << "the port itself works";
  EXPECT_FALSE(bench.dump.isOn());
  EXPECT_EQ(bench.world.files.openFiles, 0);
}

}  // namespace
}  // namespace corvid
