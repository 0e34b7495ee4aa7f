// Which system calls the serial ports make, in which order, and what becomes of their failures.
#include "port_bench.h"
#include "transport/serial_transport.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvid {
namespace {

using Calls = std::vector<std::string>;
using Port = std::int16_t;
using Numbers = std::vector<std::uint32_t>;

struct OpeningStep {
  const char* call;
  std::wstring source;
};
const OpeningStep kOpening[] = {
    {"createFile", L"CommOpen (CreateFile)"},
    {"setupComm", L"CommOpen (SetupComm)"},
    {"purgeComm", L"CommOpen (PurgeComm)"},
    {"setCommTimeouts", L"CommOpen (SetCommTimeouts)"},
    {"getCommState", L"CommOpen (GetCommState)"},
    {"buildCommDcb", L"CommOpen (BuildCommDCB)"},
    {"setCommState", L"CommOpen (SetCommState)"},
};

TEST(PortOpening, ConfiguresTheLineInOrderAndStopsAtTheFirstFailure) {
  for (std::size_t failing = 0; failing < std::size(kOpening); ++failing) {
    PortBench bench;
    bench.world.faults.failNth("", static_cast<int>(failing) + 1, 87);
    EXPECT_EQ(bench.open(7), 87);
    EXPECT_EQ(bench.error(), L"Error (87): " + kOpening[failing].source + L" - system message 87");
    EXPECT_EQ(bench.world.serial.calls().size(), failing + 1);
    EXPECT_EQ(bench.world.serial.calls().back(), kOpening[failing].call);
    EXPECT_EQ(bench.comm.isOpen(7), failing > 0) << "behind CreateFile it is there to be closed";
    EXPECT_EQ(bench.comm.CommClose(7), 0);
    EXPECT_EQ(bench.open(7), 0) << "the next opening works";
  }
}

TEST(PortOpening, GivesTheQueuesTheTimeoutsAndThePathOfThePort) {
  PortBench bench;
  for (const Port port : {Port{1}, Port{9}, Port{10}, Port{99}}) EXPECT_EQ(bench.open(port), 0);
  const SerialDouble& serial = bench.world.serial;
  EXPECT_EQ(serial.opened(),
            (std::vector<std::wstring>{L"COM1", L"COM9", L"\\\\.\\COM10", L"\\\\.\\COM99"}));
  EXPECT_EQ(serial.numbersOf("setupComm"), Numbers(8, 1024));
  EXPECT_EQ(serial.numbersOf("purgeComm"), Numbers(4, 15));
  const SerialTimeouts& timeouts = serial.timeouts();
  EXPECT_EQ(timeouts.readInterval, 0xFFFFFFFFU);
  EXPECT_EQ(timeouts.readTotalMultiplier, 0U);
  EXPECT_EQ(timeouts.readTotalConstant, 1000U) << "milliseconds";
  EXPECT_EQ(timeouts.writeTotalMultiplier, 1000U);
  EXPECT_EQ(timeouts.writeTotalConstant, 0U);
}

// Another program may have left every flag after in the driver.
TEST(PortOpening, SetsTheWholeStateOfThePort) {
  using LineControl = DeviceControlBlock::LineControl;
  PortBench bench;
  DeviceControlBlock left;
  left.ctsFlow = left.dsrFlow = left.dsrSensitive = left.continuesOnXoff = true;
  left.xonXoffOutput = left.xonXoffInput = left.replacesErrors = left.stripsNulls = true;
  left.abortsOnError = true;
  left.rts = LineControl::Handshake;
  left.xonChar = left.xoffChar = left.errorChar = '?';
  left.xonLimit = 77;
  bench.world.serial.deviceState = left;
  EXPECT_EQ(bench.open(7), 0);
  DeviceControlBlock expected;
  expected.baudRate = 9600;
  expected.isBinary = expected.checksParity = true;
  expected.dtr = LineControl::Enable;
  expected.rts = LineControl::Disable;
  expected.xonLimit = 77;
  expected.byteSize = 8;
  expected.parity = 2;
  expected.xonChar = 0x11;
  expected.xoffChar = 0x13;
  expected.errorChar = '?';
  EXPECT_EQ(bench.world.serial.deviceState, expected);
  bench.world.serial.deviceState = left;
  EXPECT_EQ(bench.comm.CommSet(7, L"baud=1200"), 0);
  expected.baudRate = 1200;
  EXPECT_EQ(bench.world.serial.deviceState, expected);
}

TEST(PortOpening, FailureWithoutANumberIsNoSuccess) {
  PortBench bench;
  bench.world.serial.failNth("createFile", 1, 0);
  EXPECT_EQ(bench.open(7), 31);
}

TEST(PortNumbers, OutsideTheTableOrOfAClosedPortFailEveryOperation) {
  std::string data;
  bool state = false;
  const struct {
    const char* name;
    std::function<std::int32_t(modCOMM& comm, Port port)> call;
    std::int32_t whenClosed;
  } kOperations[] = {
      {"open", [](modCOMM& c, Port port) { return c.CommOpen(port, L"COM", kLineSettings); }, 0},
      {"close", [](modCOMM& c, Port port) { return c.CommClose(port); }, 0},
      {"read", [&](modCOMM& c, Port port) { return c.CommRead(port, data, 10); }, -1},
      {"write", [](modCOMM& c, Port port) { return c.CommWrite(port, "a"); }, -1},
      {"state", [&](modCOMM& c, Port port) { return c.CommReadCD(port, 1, state); }, 6},
      {"line", [](modCOMM& c, Port port) { return c.CommSetLine(port, CommLine::Dtr, 1); }, 6},
      {"settings", [](modCOMM& c, Port port) { return c.CommSet(port, kLineSettings); }, 6},
      {"flush", [](modCOMM& c, Port port) { return c.CommFlush(port); }, 6},
      {"whether it is open", [](modCOMM& c, Port port) { return c.isOpen(port) ? 1 : 0; }, 0},
  };
  for (const auto& item : kOperations) {
    PortBench bench;
    for (const Port port : {Port{0}, Port{-1}, Port{100}}) {
      EXPECT_EQ(errorOf([&] { item.call(bench.comm, port); }), 9) << item.name << port;
    }
    EXPECT_TRUE(bench.world.serial.calls().empty()) << item.name;
    EXPECT_EQ(item.call(bench.comm, 7), item.whenClosed) << item.name;
    EXPECT_EQ(item.call(bench.comm, 99), item.whenClosed) << item.name << ": the last one";
  }
}

TEST(PortReading, LineThatTellsNothingFailsWithItsWords) {
  OpenPort bench;
  bench.world.serial.failNth("clearCommError", 1, 22);
  std::string data;
  EXPECT_EQ(bench.comm.CommRead(7, data, 10), -1);
  EXPECT_EQ(bench.error(), L"Error (22): CommRead (ClearCommError) - system message 22");
}

// A handle that does not close belongs to a device that is gone.
TEST(PortClosing, FailureIsToldAndFreesThePort) {
  OpenPort bench;
  bench.world.serial.failNth("closeHandle", 1, 6);
  EXPECT_EQ(bench.comm.CommClose(7), 6);
  EXPECT_EQ(bench.error(), L"Error (6): CommClose (CloseHandle) - system message 6");
  EXPECT_FALSE(bench.comm.isOpen(7));
  EXPECT_EQ(bench.comm.CommClose(7), 0);
  EXPECT_EQ(bench.world.serial.count("closeHandle"), 1U) << "a closed port is not closed again";
}

TEST(PortClosing, StreamClosesAtItsEndWhatItOpenedItself) {
  PortBench bench;
  auto opened = std::make_unique<SerialTransport>(bench.comm, bench.world.clock, Port{7}, true);
  {
    SerialTransport failed(bench.comm, bench.world.clock, 7, true);
    bench.world.serial.failNth("createFile", 1, 5);
    EXPECT_EQ(failed.open(), 5);
    EXPECT_EQ(opened->open(), 0);
    EXPECT_EQ(failed.open(), kPortInUse);
    EXPECT_EQ(failed.close(), 0);
  }
  EXPECT_TRUE(bench.comm.isOpen(7));
  opened.reset();
  EXPECT_FALSE(bench.comm.isOpen(7));
}

TEST(PortReading, StreamAsksForWhatIsThereUnlessTheSettingSaysOtherwise) {
  const std::pair<std::wstring, std::uint32_t> kCases[] = {
      {L"", 3}, {L"True", 3}, {L"False", 4096}};
  for (const auto& [setting, asked] : kCases) {
    PortBench bench;
    if (!setting.empty()) bench.world.settings.set(kPortSection, L"LecturaInmediata", setting);
    Transports transports(bench.world.serial, bench.world.sockets, bench.world.clock, bench.shared);
    const std::shared_ptr<Transport> stream = transports.make(7, bench.settings);
    ASSERT_EQ(stream->open(), 0);
    bench.world.serial.deliver("abc");
    std::string data;
    EXPECT_EQ(stream->read(data), 3);
    EXPECT_EQ(bench.world.serial.numbersOf("readFile"), Numbers{asked});
  }
}

TEST(PortReading, AsksForTheLargerCountUpToItsBuffer) {
  const struct {
    std::size_t waiting;
    std::int32_t size;
    std::uint32_t asked;
    std::int32_t read;
  } kCases[] = {
      {3, 10, 10, 3},        {20, 10, 20, 20},         {3, kExactly, 3, 3},
      {4096, 1, 4096, 4096}, {5000, 4096, 4096, 4096}, {1, 2147483647, 4096, 1},
  };
  for (const auto& item : kCases) {
    OpenPort bench;
    bench.world.serial.deliver(std::string(item.waiting, 'x'));
    std::string data = "~";
    EXPECT_EQ(bench.comm.CommRead(7, data, item.size), item.read) << item.waiting;
    EXPECT_EQ(bench.world.serial.numbersOf("readFile"), Numbers{item.asked});
    EXPECT_EQ(data, "~" + std::string(static_cast<std::size_t>(item.read), 'x')) << "is appended";
    EXPECT_EQ(bench.comm.CommDiscard(7).size(), item.waiting - static_cast<std::size_t>(item.read))
        << "the rest is still there";
    EXPECT_EQ(bench.comm.CommRead(7, data, 4096), 0);
  }
  OpenPort silent;
  std::string data;
  EXPECT_EQ(silent.comm.CommRead(7, data, 4096), 0);
  EXPECT_EQ(silent.world.serial.calls(), Calls{"clearCommError"}) << "no read of nothing";
}

TEST(PortReading, PortsDoNotMix) {
  PortBench bench;
  bench.open(7);
  bench.world.serial.deliver("seven");
  bench.open(8);
  bench.world.serial.deliver("eight");
  EXPECT_EQ(bench.comm.CommDiscard(7), "seven");
  EXPECT_EQ(bench.comm.CommDiscard(8), "eight");
  bench.comm.CommClose(7);
  bench.open(9);
  bench.world.serial.deliver("nine");
  EXPECT_EQ(bench.comm.CommDiscard(7), "") << "whose handle another port has now";
}

TEST(PortTransfers, PendingOnesAreWaitedForHoweverLongTheyAreIncomplete) {
  OpenPort bench;
  SerialDouble& serial = bench.world.serial;
  for (int nth = 1; nth <= 3; ++nth) serial.failNth("getOverlappedResult", nth, 996);
  serial.failNth("readFile", 1, 997);
  serial.deliver("abc");
  std::string data;
  EXPECT_EQ(bench.comm.CommRead(7, data, 10), 3);
  EXPECT_EQ(data, "abc");
  EXPECT_EQ(serial.count("getOverlappedResult"), 4U);

  serial.failNth("writeFile", 1, 997);
  serial.shortenWrite(1, 1);
  EXPECT_EQ(bench.comm.CommWrite(7, "abcd"), 3) << "what was written, be it less";
  EXPECT_EQ(serial.written(), Calls{"abcd"});
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
    for (const bool canAskForFlags : {true, false}) {
      OpenPort bench;
      SerialDouble& serial = bench.world.serial;
      serial.errorFlags = 0x101A;
      if (item.pending) serial.failNth(item.reads ? "readFile" : "writeFile", 1, 997);
      serial.failNth(item.call, 1, 1117);
      if (!canAskForFlags) serial.failNth("clearCommError", item.reads ? 2 : 1, 22);
      serial.deliver("abc");
      std::string data;
      EXPECT_EQ(item.reads ? bench.comm.CommRead(7, data, 10) : bench.comm.CommWrite(7, "abc"), -1);
      EXPECT_EQ(data, "");
      EXPECT_EQ(bench.error(), L"Error (1117): " + item.source +
                                   L" - system message 1117  COMM Error Flags = " +
                                   (canAskForFlags ? L"101A" : L"0"));
    }
  }
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
  const OpeningStep kCases[] = {
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

TEST(PortLines, FlushDropsWhatWaits) {
  OpenPort bench;
  bench.world.serial.deliver("late");
  EXPECT_EQ(bench.comm.CommFlush(7), 0);
  EXPECT_EQ(bench.world.serial.numbersOf("purgeComm"), Numbers{15});
  EXPECT_EQ(bench.comm.CommDiscard(7), "");
}

}  // namespace
}  // namespace corvid
