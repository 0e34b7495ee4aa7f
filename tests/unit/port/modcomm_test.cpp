// Which system calls the serial ports make, in which order, and what becomes of their failures.
#include "port_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace corvid {
namespace {

using Calls = std::vector<std::string>;
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
  EXPECT_EQ(serial.lineSettings(), kLineSettings);
  EXPECT_EQ(serial.deviceState.bytes.front(), static_cast<std::byte>(kLineSettings.size()))
      << "the settings reach the device";
  EXPECT_EQ(serial.deviceState.bytes.back(), std::byte{0x5A}) << "the rest is the device's own";
  EXPECT_TRUE(bench.comm.isOpen(7));
}

TEST(PortOpening, SetsTheTimeOutsInMilliseconds) {
  PortBench bench;
  bench.open(7);
  const SerialTimeouts& timeouts = bench.world.serial.timeouts();
  EXPECT_EQ(timeouts.readInterval, 0xFFFFFFFFU);
  EXPECT_EQ(timeouts.readTotalMultiplier, 0U);
  EXPECT_EQ(timeouts.readTotalConstant, 1000U);
  EXPECT_EQ(timeouts.writeTotalMultiplier, 1000U);
  EXPECT_EQ(timeouts.writeTotalConstant, 0U);
}

TEST(PortOpening, PortsAboveNineGoByTheirDevicePath) {
  PortBench bench;
  for (const std::int16_t port :
       {std::int16_t{1}, std::int16_t{9}, std::int16_t{10}, std::int16_t{99}}) {
    EXPECT_EQ(bench.open(port), 0) << port;
  }
  EXPECT_EQ(bench.world.serial.opened(),
            (std::vector<std::wstring>{L"COM1", L"COM9", L"\\\\.\\COM10", L"\\\\.\\COM99"}));
}

struct OpeningFailure {
  const char* call;
  std::wstring source;
};

TEST(PortOpening, StopsAtTheFirstFailureAndKeepsIt) {
  const OpeningFailure cases[] = {
      {"createFile", L"CommOpen (CreateFile)"},
      {"setupComm", L"CommOpen (SetupComm)"},
      {"purgeComm", L"CommOpen (PurgeComm)"},
      {"setCommTimeouts", L"CommOpen (SetCommTimeouts)"},
      {"getCommState", L"CommOpen (GetCommState)"},
      {"buildCommDcb", L"CommOpen (BuildCommDCB)"},
      {"setCommState", L"CommOpen (SetCommState)"},
  };
  for (const OpeningFailure& item : cases) {
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
  PortBench bench;
  bench.openSeven();
  EXPECT_EQ(bench.open(7), -1);
  EXPECT_EQ(bench.error(), L"Error (-1): CommOpen - Port in use.");
  EXPECT_TRUE(bench.world.serial.calls().empty());
  EXPECT_TRUE(bench.comm.isOpen(7)) << "the first opening holds";
}

TEST(PortNumbers, OutsideTheTableAreAnErrorOfEveryOperation) {
  PortBench bench;
  std::wstring data;
  bool state = false;
  for (const std::int16_t port : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{100}}) {
    EXPECT_EQ(errorNumberOf([&] { bench.open(port); }), 9) << port;
    EXPECT_EQ(errorNumberOf([&] { bench.comm.CommClose(port); }), 9) << port;
    EXPECT_EQ(errorNumberOf([&] { bench.comm.CommRead(port, data, 10); }), 9) << port;
    EXPECT_EQ(errorNumberOf([&] { bench.comm.CommWrite(port, L"a"); }), 9) << port;
    EXPECT_EQ(errorNumberOf([&] { bench.comm.CommReadCD(port, 1, state); }), 9) << port;
    EXPECT_EQ(errorNumberOf([&] { bench.comm.CommSetLine(port, CommLine::Dtr, 1); }), 9) << port;
    EXPECT_EQ(errorNumberOf([&] { bench.comm.CommSet(port, kLineSettings); }), 9) << port;
    EXPECT_EQ(errorNumberOf([&] { bench.comm.CommFlush(port); }), 9) << port;
  }
  EXPECT_TRUE(bench.world.serial.calls().empty());
}

TEST(PortNumbers, ClosedPortFailsInEveryOperation) {
  PortBench bench;
  std::wstring data = L"old";
  bool state = false;
  EXPECT_EQ(bench.comm.CommRead(7, data, 10), -1);
  EXPECT_EQ(bench.error(), L"Error (6): CommRead (ClearCommError) - system message 6");
  EXPECT_EQ(data, L"");
  EXPECT_EQ(bench.comm.CommWrite(7, L"a"), -1);
  EXPECT_EQ(bench.comm.CommReadCD(7, 1, state), 6);
  EXPECT_EQ(bench.comm.CommSetLine(7, CommLine::Dtr, 1), 6);
  EXPECT_EQ(bench.comm.CommSet(7, kLineSettings), 6);
  EXPECT_EQ(bench.comm.CommFlush(7), 6);
}

TEST(PortClosing, FailureKeepsThePortOpen) {
  PortBench bench;
  bench.openSeven();
  bench.world.serial.failNth("closeHandle", 1, 6);
  EXPECT_EQ(bench.comm.CommClose(7), 6);
  EXPECT_EQ(bench.error(), L"Error (6): CommClose (CloseHandle) - system message 6");
  EXPECT_TRUE(bench.comm.isOpen(7));
  EXPECT_EQ(bench.comm.CommClose(7), 0);
  EXPECT_FALSE(bench.comm.isOpen(7));
}

TEST(PortClosing, ClosedPortIsNotClosedAgain) {
  PortBench bench;
  EXPECT_EQ(bench.comm.CommClose(7), 0);
  EXPECT_TRUE(bench.world.serial.calls().empty());
}

TEST(PortReading, NothingWaitingReadsNothing) {
  PortBench bench;
  bench.openSeven();
  std::wstring data = L"old";
  EXPECT_EQ(bench.comm.CommRead(7, data, 4096), 0);
  EXPECT_EQ(data, L"");
  EXPECT_EQ(bench.world.serial.calls(), Calls{"clearCommError"});
  EXPECT_EQ(bench.world.host.count, 1);
}

struct AskedCase {
  std::size_t waiting;
  std::int32_t size;
  std::uint32_t asked;
  std::int32_t read;
};

TEST(PortReading, AsksForTheLargerCountUpToItsBuffer) {
  const AskedCase cases[] = {
      {3, 10, 10, 3},        {20, 10, 20, 20},         {3, -5, 3, 3},
      {4096, 1, 4096, 4096}, {5000, 4096, 4096, 4096}, {1, 2147483647, 4096, 1},
  };
  for (const AskedCase& item : cases) {
    PortBench bench;
    bench.openSeven();
    bench.world.serial.deliver(std::string(item.waiting, 'x'));
    std::wstring data;
    EXPECT_EQ(bench.comm.CommRead(7, data, item.size), item.read) << item.waiting;
    EXPECT_EQ(data, std::wstring(static_cast<std::size_t>(item.read), L'x'));
    EXPECT_EQ(bench.world.serial.numbersOf("readFile"), Numbers{item.asked});
  }
}

TEST(PortReading, BytesBeyondTheBufferComeWithTheNextRead) {
  PortBench bench;
  bench.openSeven();
  bench.world.serial.deliver(std::string(4096, 'x') + "tail");
  std::wstring data;
  bench.comm.CommRead(7, data, 4096);
  EXPECT_EQ(bench.comm.CommRead(7, data, 4096), 4);
  EXPECT_EQ(data, L"tail");
}

TEST(PortReading, BytesBecomeCharactersOfTheCodePage) {
  PortBench bench;
  bench.openSeven();
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
  PortBench bench;
  bench.openSeven();
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

struct TransferFailure {
  const char* call;
  bool pending;  // the transfer itself began
  bool reads;
  std::wstring source;
};

std::int32_t transfer(PortBench& bench, bool reads) {
  if (!reads) return bench.comm.CommWrite(7, L"abc");
  bench.world.serial.deliver("abc");
  std::wstring data = L"old";
  const std::int32_t count = bench.comm.CommRead(7, data, 10);
  EXPECT_EQ(data.size(), static_cast<std::size_t>(std::max(count, 0)));
  return count;
}

TEST(PortTransfers, FailuresTellTheErrorFlagsOfTheLine) {
  const TransferFailure cases[] = {
      {"readFile", false, true, L"CommRead (ReadFile)"},
      {"getOverlappedResult", true, true, L"CommRead (GetOverlappedResult)"},
      {"writeFile", false, false, L"CommWrite (WriteFile)"},
      {"getOverlappedResult", true, false, L"CommWrite (GetOverlappedResult)"},
  };
  for (const TransferFailure& item : cases) {
    PortBench bench;
    bench.openSeven();
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
    PortBench bench;
    bench.openSeven();
    bench.world.serial.failNth(reads ? "readFile" : "writeFile", 1, 1117);
    bench.world.serial.failNth("clearCommError", reads ? 2 : 1, 22);
    EXPECT_EQ(transfer(bench, reads), -1);
    EXPECT_TRUE(bench.error().starts_with(L"Error (1117): "));
    EXPECT_TRUE(bench.error().ends_with(L" 1117  COMM Error Flags = 0"));
  }
}

TEST(PortWriting, SendsOneBytePerCharacterAndYieldsBehindTheWrite) {
  PortBench bench;
  bench.openSeven();
  std::size_t writtenAtYield = 0;
  bench.world.host.whenYielded = [&] { writtenAtYield = bench.world.serial.written().size(); };
  EXPECT_EQ(bench.comm.CommWrite(7, std::wstring(L"\x02\0Ñ€\u4E2D", 5)), 5);
  EXPECT_EQ(bench.world.serial.written(), Calls{std::string("\x02\0\xD1\x80?", 5)});
  EXPECT_EQ(bench.world.host.count, 1);
  EXPECT_EQ(writtenAtYield, 1U);
}

TEST(PortWriting, ShortWriteGivesItsCount) {
  PortBench bench;
  bench.openSeven();
  bench.world.serial.shortenWrite(1, 2);
  EXPECT_EQ(bench.comm.CommWrite(7, L"abcd"), 2);
}

TEST(PortYields, HostThatClosesThePortMeanwhileMakesTheTransferFail) {
  PortBench bench;
  bench.openSeven();
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
  PortBench bench;
  bench.openSeven();
  bench.world.host.whenYielded = [&] { bench.comm.CommFlush(8); };
  bench.world.serial.failNth("writeFile", 1, 1117);
  EXPECT_EQ(bench.comm.CommWrite(7, L"abc"), -1);
  EXPECT_TRUE(bench.error().starts_with(L"Error (1117): CommWrite (WriteFile) - "));
}

struct LineCase {
  CommLine line;
  std::int16_t state;
  Numbers functions;
};

TEST(PortLines, AnyStateButZeroSetsTheLine) {
  const LineCase cases[] = {
      {CommLine::Break, 1, {8}}, {CommLine::Break, 0, {9}}, {CommLine::Dtr, -1, {5}},
      {CommLine::Dtr, 0, {6}},   {CommLine::Rts, 256, {3}}, {CommLine::Rts, 0, {4}},
      {CommLine{4}, 1, {}},
  };
  for (const LineCase& item : cases) {
    PortBench bench;
    bench.openSeven();
    EXPECT_EQ(bench.comm.CommSetLine(7, item.line, item.state), 0);
    EXPECT_EQ(bench.world.serial.numbersOf("escapeCommFunction"), item.functions);
  }
}

TEST(PortLines, StateIsAnyBitOfTheMask) {
  PortBench bench;
  bench.openSeven();
  bench.world.serial.modemStatus = 0x80;
  bool state = true;
  EXPECT_EQ(bench.comm.CommReadCD(7, 0x30, state), 0);
  EXPECT_FALSE(state);
  EXPECT_EQ(bench.comm.CommReadCD(7, 0x90, state), 0);
  EXPECT_TRUE(state);
}

struct SettingFailure {
  const char* call;
  std::wstring source;
};

TEST(PortLines, FailuresAreReturnedAndKept) {
  const SettingFailure cases[] = {
      {"getCommModemStatus", L"CommReadCD (GetCommModemStatus)"},
      {"escapeCommFunction", L"CommSetLine (EscapeCommFunction)"},
      {"getCommState", L"CommSet (GetCommState)"},
      {"buildCommDcb", L"CommSet (BuildCommDCB)"},
      {"setCommState", L"CommSet (SetCommState)"},
      {"purgeComm", L"CommFlush (PurgeComm)"},
  };
  for (const SettingFailure& item : cases) {
    PortBench bench;
    bench.openSeven();
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
  PortBench bench;
  bench.openSeven();
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
