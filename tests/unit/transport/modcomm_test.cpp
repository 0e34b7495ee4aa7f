// Which system calls the serial ports make, in which order, and what becomes of their failures.
#include "port_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace corvid {
namespace {

using Calls = std::vector<std::string>;
using Port = std::int16_t;
using Numbers = std::vector<std::uint32_t>;

const Calls kOpening = {"createFile",   "setupComm",    "purgeComm",   "setCommTimeouts",
                        "getCommState", "buildCommDcb", "setCommState"};

TEST(PortOpening, ConfiguresTheLineInOrder) {
  PortBench bench;
  bench.world.serial.deviceState.bytes.back() = std::byte{0x5A};
  EXPECT_EQ(bench.open(7), 0);
  const SerialDouble& serial = bench.world.serial;
  EXPECT_EQ(serial.calls(), kOpening);
  EXPECT_EQ(serial.opened(), (std::vector<std::wstring>{L"COM7"}));
  EXPECT_EQ(serial.numbersOf("setupComm"), (Numbers{1024, 1024}));
  EXPECT_EQ(serial.numbersOf("purgeComm"), (Numbers{15}));
  const SerialTimeouts& timeouts = serial.timeouts();
  EXPECT_EQ(timeouts.readInterval, 0xFFFFFFFFU);
  EXPECT_EQ(timeouts.readTotalMultiplier, 0U);
  EXPECT_EQ(timeouts.readTotalConstant, 1000U) << "milliseconds";
  EXPECT_EQ(timeouts.writeTotalMultiplier, 1000U);
  EXPECT_EQ(timeouts.writeTotalConstant, 0U);
  EXPECT_EQ(serial.lineSettings(), kLineSettings);
  EXPECT_EQ(serial.deviceState.bytes.front(), static_cast<std::byte>(kLineSettings.size()))
      << "the settings reach the device";
  EXPECT_EQ(serial.deviceState.bytes.back(), std::byte{0x5A}) << "the rest is the device's own";
  EXPECT_TRUE(bench.comm.isOpen(7));
}

TEST(PortOpening, PortsAboveNineGoByTheirDevicePath) {
  PortBench bench;
  for (const Port port : {Port{1}, Port{9}, Port{10}, Port{99}}) EXPECT_EQ(bench.open(port), 0);
  EXPECT_EQ(bench.world.serial.opened(),
            (std::vector<std::wstring>{L"COM1", L"COM9", L"\\\\.\\COM10", L"\\\\.\\COM99"}));
}

TEST(PortOpening, StopsAtTheFirstFailureAndKeepsIt) {
  const struct {
    const char* call;
    std::wstring source;
  } kCases[] = {
      {"createFile", L"CommOpen (CreateFile)"},
      {"setupComm", L"CommOpen (SetupComm)"},
      {"purgeComm", L"CommOpen (PurgeComm)"},
      {"setCommTimeouts", L"CommOpen (SetCommTimeouts)"},
      {"getCommState", L"CommOpen (GetCommState)"},
      {"buildCommDcb", L"CommOpen (BuildCommDCB)"},
      {"setCommState", L"CommOpen (SetCommState)"},
  };
  for (const auto& item : kCases) {
    PortBench bench;
    bench.world.serial.failNth(item.call, 1, 87);
    EXPECT_EQ(bench.open(7), 87) << item.call;
    EXPECT_EQ(bench.error(), L"Error (87): " + item.source + L" - system message 87");
    EXPECT_EQ(bench.world.serial.calls().back(), item.call) << "nothing is tried behind it";
    EXPECT_EQ(bench.comm.isOpen(7), std::string(item.call) != "createFile") << item.call;
    EXPECT_EQ(bench.comm.CommClose(7), 0) << item.call;
    EXPECT_EQ(bench.open(7), 0) << item.call << ": the next opening works";
  }
}

TEST(PortOpening, FailureWithoutANumberIsNoSuccess) {
  PortBench bench;
  bench.world.serial.failNth("createFile", 1, 0);
  EXPECT_EQ(bench.open(7), 31);
}

TEST(PortOpening, OpenPortIsInUse) {
  OpenPort bench;
  EXPECT_EQ(bench.open(7), -1);
  EXPECT_EQ(bench.error(), L"Error (-1): CommOpen - Port in use.");
  EXPECT_TRUE(bench.world.serial.calls().empty());
  EXPECT_TRUE(bench.comm.isOpen(7)) << "the first opening holds";
}

TEST(PortNumbers, OutsideTheTableOrOfAClosedPortFailEveryOperation) {
  std::wstring data;
  bool state = false;
  const struct {
    const char* name;
    std::function<std::int32_t(modCOMM& comm, Port port)> call;
    std::int32_t whenClosed;
  } kOperations[] = {
      {"open", [](modCOMM& c, Port port) { return c.CommOpen(port, L"COM", kLineSettings); }, 0},
      {"close", [](modCOMM& c, Port port) { return c.CommClose(port); }, 0},
      {"read", [&](modCOMM& c, Port port) { return c.CommRead(port, data, 10); }, -1},
      {"write", [](modCOMM& c, Port port) { return c.CommWrite(port, L"a"); }, -1},
      {"state", [&](modCOMM& c, Port port) { return c.CommReadCD(port, 1, state); }, 6},
      {"line", [](modCOMM& c, Port port) { return c.CommSetLine(port, CommLine::Dtr, 1); }, 6},
      {"settings", [](modCOMM& c, Port port) { return c.CommSet(port, kLineSettings); }, 6},
      {"flush", [](modCOMM& c, Port port) { return c.CommFlush(port); }, 6},
  };
  for (const auto& item : kOperations) {
    PortBench bench;
    for (const Port port : {Port{0}, Port{-1}, Port{100}}) {
      EXPECT_EQ(errorOf([&] { item.call(bench.comm, port); }), 9) << item.name << port;
    }
    EXPECT_TRUE(bench.world.serial.calls().empty()) << item.name;
    data = L"old";
    EXPECT_EQ(item.call(bench.comm, 7), item.whenClosed) << item.name;
    EXPECT_EQ(data.empty(), item.name == std::string("read")) << item.name;
  }
}

TEST(PortClosing, FailureKeepsThePortOpen) {
  OpenPort bench;
  bench.world.serial.failNth("closeHandle", 1, 6);
  EXPECT_EQ(bench.comm.CommClose(7), 6);
  EXPECT_EQ(bench.error(), L"Error (6): CommClose (CloseHandle) - system message 6");
  EXPECT_TRUE(bench.comm.isOpen(7));
  EXPECT_EQ(bench.comm.CommClose(7), 0);
  EXPECT_FALSE(bench.comm.isOpen(7));
  EXPECT_EQ(bench.comm.CommClose(7), 0);
  EXPECT_EQ(bench.world.serial.count("closeHandle"), 2U) << "a closed port is not closed again";
}

TEST(PortReading, NothingWaitingReadsNothing) {
  OpenPort bench;
  std::wstring data = L"old";
  EXPECT_EQ(bench.comm.CommRead(7, data, 4096), 0);
  EXPECT_EQ(data, L"");
  EXPECT_EQ(bench.world.serial.calls(), Calls{"clearCommError"});
  EXPECT_EQ(bench.world.host.count, 1);
  bench.comm.CommClose(7);
  EXPECT_EQ(bench.comm.CommRead(7, data, 4096), -1);
  EXPECT_EQ(bench.error(), L"Error (6): CommRead (ClearCommError) - system message 6");
}

TEST(PortReading, AsksForTheLargerCountUpToItsBuffer) {
  const struct {
    std::size_t waiting;
    std::int32_t size;
    std::uint32_t asked;
    std::int32_t read;
  } kCases[] = {
      {3, 10, 10, 3},        {20, 10, 20, 20},         {3, -5, 3, 3},
      {4096, 1, 4096, 4096}, {5000, 4096, 4096, 4096}, {1, 2147483647, 4096, 1},
  };
  for (const auto& item : kCases) {
    OpenPort bench;
    bench.world.serial.deliver(std::string(item.waiting, 'x'));
    std::wstring data;
    EXPECT_EQ(bench.comm.CommRead(7, data, item.size), item.read) << item.waiting;
    EXPECT_EQ(bench.world.serial.numbersOf("readFile"), Numbers{item.asked});
    const auto read = static_cast<std::size_t>(item.read);
    EXPECT_EQ(data, std::wstring(read, L'x'));
    EXPECT_EQ(bench.comm.CommRead(7, data, 4096), item.waiting - read) << "the rest comes next";
  }
}

TEST(PortReading, BytesBecomeCharactersOfTheCodePage) {
  OpenPort bench;
  bench.world.serial.deliver(std::string("\0\xD1\x80", 3));
  std::wstring data;
  EXPECT_EQ(bench.comm.CommRead(7, data, 1), 3);
  EXPECT_EQ(data, std::wstring(L"\0\u00D1\u20AC", 3));
}

TEST(PortReading, PortsDoNotMix) {
  PortBench bench;
  bench.open(7);
  bench.world.serial.deliver("seven");
  bench.open(8);
  bench.world.serial.deliver("eight");
  std::wstring data;
  bench.comm.CommRead(7, data, 10);
  EXPECT_EQ(data, L"seven");
  bench.comm.CommRead(8, data, 10);
  EXPECT_EQ(data, L"eight");
}

TEST(PortTransfers, PendingOnesAreWaitedForHoweverLongTheyAreIncomplete) {
  OpenPort bench;
  SerialDouble& serial = bench.world.serial;
  for (int nth = 1; nth <= 3; ++nth) serial.failNth("getOverlappedResult", nth, 996);
  serial.failNth("readFile", 1, 997);
  serial.deliver("abc");
  std::wstring data;
  EXPECT_EQ(bench.comm.CommRead(7, data, 10), 3);
  EXPECT_EQ(data, L"abc");
  EXPECT_EQ(serial.count("getOverlappedResult"), 4U);

  serial.failNth("writeFile", 1, 997);
  EXPECT_EQ(bench.comm.CommWrite(7, L"abcd"), 4);
  EXPECT_EQ(serial.written(), Calls{"abcd"});
}

std::int32_t transfer(PortBench& bench, bool reads) {
  if (!reads) return bench.comm.CommWrite(7, L"abc");
  bench.world.serial.deliver("abc");
  std::wstring data = L"old";
  const std::int32_t count = bench.comm.CommRead(7, data, 10);
  EXPECT_EQ(data.size(), static_cast<std::size_t>(std::max(count, 0)));
  return count;
}

TEST(PortTransfers, FailuresTellTheErrorFlagsOfTheLine) {
  const struct {
    const char* call;
    bool pending;  // the transfer itself began
    bool reads;
    std::wstring source;
  } kCases[] = {
      {"readFile", false, true, L"CommRead (ReadFile)"},
      {"getOverlappedResult", true, true, L"CommRead (GetOverlappedResult)"},
      {"writeFile", false, false, L"CommWrite (WriteFile)"},
      {"getOverlappedResult", true, false, L"CommWrite (GetOverlappedResult)"},
  };
  for (const auto& item : kCases) {
    OpenPort bench;
    SerialDouble& serial = bench.world.serial;
    serial.errorFlags = 0x101A;
    if (item.pending) serial.failNth(item.reads ? "readFile" : "writeFile", 1, 997);
    serial.failNth(item.call, 1, 1117);
    EXPECT_EQ(transfer(bench, item.reads), -1) << testing::PrintToString(item.source);
    EXPECT_EQ(bench.error(),
              L"Error (1117): " + item.source + L" - system message 1117  COMM Error Flags = 101A");
  }
}

TEST(PortTransfers, FailureKeepsItsNumberWhenTheFlagsCannotBeRead) {
  for (const bool reads : {true, false}) {
    OpenPort bench;
    bench.world.serial.failNth(reads ? "readFile" : "writeFile", 1, 1117);
    bench.world.serial.failNth("clearCommError", reads ? 2 : 1, 22);
    EXPECT_EQ(transfer(bench, reads), -1);
    EXPECT_TRUE(bench.error().starts_with(L"Error (1117): "));
    EXPECT_TRUE(bench.error().ends_with(L" 1117  COMM Error Flags = 0"));
  }
}

TEST(PortWriting, SendsOneBytePerCharacterAndYieldsBehindTheWrite) {
  OpenPort bench;
  std::size_t writtenAtYield = 0;
  bench.world.host.whenYielded = [&] { writtenAtYield = bench.world.serial.written().size(); };
  EXPECT_EQ(bench.comm.CommWrite(7, std::wstring(L"\x02\0Ñ€\u4E2D", 5)), 5);
  EXPECT_EQ(bench.world.serial.written(), Calls{std::string("\x02\0\xD1\x80?", 5)});
  EXPECT_EQ(bench.world.host.count, 1);
  EXPECT_EQ(writtenAtYield, 1U);
}

TEST(PortWriting, ShortWriteGivesItsCount) {
  OpenPort bench;
  bench.world.serial.shortenWrite(1, 2);
  EXPECT_EQ(bench.comm.CommWrite(7, L"abcd"), 2);
}

TEST(PortYields, HostThatClosesThePortMeanwhileMakesTheTransferFail) {
  OpenPort bench;
  bench.world.serial.deliver("abc");
  bench.world.host.whenYielded = [&] { bench.comm.CommClose(7); };
  std::wstring data;
  EXPECT_EQ(bench.comm.CommRead(7, data, 10), -1);

  bench.world.host.whenYielded = nullptr;
  bench.openSeven();
  bench.world.host.whenYielded = [&] { bench.comm.CommClose(7); };
  bench.world.serial.failNth("writeFile", 1, 997);
  EXPECT_EQ(bench.comm.CommWrite(7, L"abc"), -1);
  EXPECT_TRUE(bench.error().starts_with(L"Error (6): CommWrite (GetOverlappedResult) - "));
}

TEST(PortYields, HostThatFailsElsewhereMeanwhileDoesNotChangeTheError) {
  OpenPort bench;
  bench.world.host.whenYielded = [&] { bench.comm.CommFlush(8); };
  bench.world.serial.failNth("writeFile", 1, 1117);
  EXPECT_EQ(bench.comm.CommWrite(7, L"abc"), -1);
  EXPECT_TRUE(bench.error().starts_with(L"Error (1117): CommWrite (WriteFile) - "));
}

TEST(PortLines, AnyStateButZeroSetsTheLine) {
  const struct {
    CommLine line;
    std::int16_t state;
    Numbers functions;
  } kCases[] = {
      {CommLine::Break, 1, {8}}, {CommLine::Break, 0, {9}}, {CommLine::Dtr, -1, {5}},
      {CommLine::Dtr, 0, {6}},   {CommLine::Rts, 256, {3}}, {CommLine::Rts, 0, {4}},
      {CommLine{4}, 1, {}},
  };
  for (const auto& item : kCases) {
    OpenPort bench;
    EXPECT_EQ(bench.comm.CommSetLine(7, item.line, item.state), 0);
    EXPECT_EQ(bench.world.serial.numbersOf("escapeCommFunction"), item.functions);
  }
}

TEST(PortLines, StateIsAnyBitOfTheMask) {
  OpenPort bench;
  bench.world.serial.modemStatus = 0x80;
  bool state = true;
  EXPECT_EQ(bench.comm.CommReadCD(7, 0x30, state), 0);
  EXPECT_FALSE(state);
  EXPECT_EQ(bench.comm.CommReadCD(7, 0x90, state), 0);
  EXPECT_TRUE(state);
}

TEST(PortLines, FailuresAreReturnedAndKept) {
  const struct {
    const char* call;
    std::wstring source;
  } kCases[] = {
      {"getCommModemStatus", L"CommReadCD (GetCommModemStatus)"},
      {"escapeCommFunction", L"CommSetLine (EscapeCommFunction)"},
      {"getCommState", L"CommSet (GetCommState)"},
      {"buildCommDcb", L"CommSet (BuildCommDCB)"},
      {"setCommState", L"CommSet (SetCommState)"},
      {"purgeComm", L"CommFlush (PurgeComm)"},
  };
  for (const auto& item : kCases) {
    OpenPort bench;
    bench.world.serial.failNth(item.call, 1, 50);
    bool state = false;
    const std::int32_t results = bench.comm.CommReadCD(7, 1, state) +
                                 bench.comm.CommSetLine(7, CommLine::Rts, 1) +
                                 bench.comm.CommSet(7, L"baud=1200") + bench.comm.CommFlush(7);
    EXPECT_EQ(results, 50) << "the one that failed alone";
    EXPECT_EQ(bench.error(), L"Error (50): " + item.source + L" - system message 50");
  }
}

TEST(PortLines, NewSettingsReachTheOpenDevice) {
  OpenPort bench;
  EXPECT_EQ(bench.comm.CommSet(7, L"baud=1200"), 0);
  EXPECT_EQ(bench.world.serial.calls(), (Calls{"getCommState", "buildCommDcb", "setCommState"}));
  EXPECT_EQ(bench.world.serial.deviceState.bytes.front(), std::byte{9});
  bench.world.serial.deliver("late");
  EXPECT_EQ(bench.comm.CommFlush(7), 0);
  EXPECT_EQ(bench.world.serial.numbersOf("purgeComm"), Numbers{15});
  std::wstring data;
  EXPECT_EQ(bench.comm.CommRead(7, data, 10), 0) << "what waited is gone";
}

}  // namespace
}  // namespace corvid
