// Opening and closing sessions, alone and beside each other.
#include "support/session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

const Answer kCounters =
    blockOf("S100\n0012345\n7\n2\n3\n1\n4\n5\nJ-1\nZ7A0000042\n260314\n1030\n0\n0");

TEST(Opening, ConfiguresThePortAsksTheStatusAndLearnsTheSerial) {
  SessionBench bench;
  bench.printer().answers["S1"] = kCounters;
  bench.session().Abrir(7);
  EXPECT_EQ(bench.session().state().SerialPrinter, L"Z7A0000042");
  EXPECT_EQ(bench.thread().process().lastSerial(), L"Z7A0000042");
  EXPECT_EQ(bench.session().tipoPrinter(), HKA112);
  EXPECT_EQ(bench.world().serial.calls()[6], "setCommState") << "before the lines are set";
  EXPECT_EQ(bench.world().serial.numbersOf("escapeCommFunction"),
            (std::vector<std::uint32_t>{4, 5}))
      << "RTS cleared, DTR set";
  bench.session().Cerrar();
  EXPECT_EQ(bench.exchange().state().port, 0);
  bench.forget();
  bench.session().Abrir(7);
  EXPECT_TRUE(bench.printer().blocks.empty()) << "the number is known";
}

// The query that fails must not take away the number that a later opening has learnt.
TEST(Opening, ReopeningInTheMiddleOfOpeningKeepsTheSerial) {
  for (int nth = 1;; ++nth) {
    SessionBench bench;
    bench.printer().answers["S1"] = kCounters;
    bool isReopened = false;
    bench.atYield(nth, [&] {
      isReopened = true;
      bench.session().Abrir(8);
    });
    bench.session().Abrir(7);
    EXPECT_EQ(bench.session().state().SerialPrinter, L"Z7A0000042") << nth;
    EXPECT_EQ(bench.thread().process().lastSerial(), L"Z7A0000042") << nth;
    if (!isReopened) return;
  }
}

TEST(Opening, ClosingInTheMiddleOfOpeningForgetsNoSerial) {
  for (int nth = 1;; ++nth) {
    SessionBench bench;
    bench.thread().process().setLastSerial(L"EARLIER");
    bench.printer().answers["S1"] = kCounters;
    bool isClosed = false;
    bench.atYield(nth, [&] {
      isClosed = true;
      bench.session().Cerrar();
    });
    bench.session().Abrir(7);
    const std::wstring expected = isClosed ? L"EARLIER" : L"Z7A0000042";
    EXPECT_EQ(bench.thread().process().lastSerial(), expected) << nth;
    if (!isClosed) return;
  }
}

TEST(Opening, NumberOutsideTheTableChangesNothing) {
  OpenBench bench;
  for (const std::int16_t port : {std::int16_t{0}, std::int16_t{100}, std::int16_t{-1}}) {
    EXPECT_EQ(errorOf([&] { bench.session().Abrir(port); }), 9) << port;
  }
  EXPECT_EQ(bench.session().Execute(L"w"), 0) << "the open port still serves";
  for (const std::int16_t port : {std::int16_t{1}, std::int16_t{99}}) {
    EXPECT_EQ(errorOf([&] { bench.session().Abrir(port); }), 0) << port;
  }
}

RunTimeError errorOfOpening(PrinterSession& session) {
  try {
    session.Abrir(7);
  } catch (const RunTimeError& error) {
    return error;
  }
  return {0, L"", L""};
}

TEST(Opening, FailureOfAnyCallIsRaisedAndTheNextOpeningWorks) {
  const std::wstring kSerial = L"Error (5): CommOpen (";
  const std::wstring kTcp = L"Error (5): tcp:box:4000 (";
  const struct {
    const char* call;
    std::wstring words;
  } kCalls[] = {{"createFile", kSerial}, {"setCommState", kSerial}, {"resolve", kTcp}};
  for (const auto& [call, words] : kCalls) {
    SessionBench bench;
    if (words == kTcp) bench.world().settings.set(kPlacesSection, L"7", L"tcp:box:4000");
    bench.session().state().SerialPrinter = L"KNOWN";
    bench.world().faults.failNth(call, 1, 5);
    const RunTimeError error = errorOfOpening(bench.session());
    EXPECT_EQ(error.number(), 40001) << call;
    EXPECT_EQ(error.source(), L"PrinterFiscal.Abrir");
    EXPECT_TRUE(error.description().starts_with(words)) << call;
    EXPECT_EQ(bench.session().exchange().state().port, 7) << call;
    EXPECT_EQ(bench.world().sockets.openSockets(), 0U) << call;
    bench.session().Abrir(7);
    EXPECT_EQ(bench.session().Execute(L"w"), 0) << call;
  }
}

TEST(Closing, EndOfASessionLeavesNothingOpen) {
  for (const bool opens : {true, false}) {
    SessionBench bench({{L"IsDebug", L"True"}, {L"DEBUGFILE", L"trace.log"}});
    bench.world().settings.set(kPortSection, L"DEBUG", L"1");
    bench.world().settings.set(kPortSection, L"DumpFile", L"dump.log");
    auto session = bench.another();
    if (!opens) bench.world().faults.failNth("createFile", 1, 5);
    EXPECT_EQ(errorOfOpening(*session).number(), opens ? 0 : 40001);
    EXPECT_EQ(bench.world().files.openFiles, opens ? 2 : 1) << "the dump opens with any port";
    bench.session().Cerrar();
    EXPECT_EQ(bench.world().files.openFiles, 1) << "no port of its own, no dump";
    session.reset();
    EXPECT_EQ(bench.world().serial.openHandles(), 0U);
    EXPECT_EQ(bench.world().files.openFiles, 0);
  }
}

TEST(Opening, PortOfAnotherSessionIsNeitherWrittenNorClosed) {
  OpenBench bench;
  auto second = bench.another();
  EXPECT_EQ(errorOfOpening(*second).description(), L"Error (-1): CommOpen - Port in use.");
  EXPECT_EQ(second->Execute(L"w"), pfCommError);
  EXPECT_EQ(errorOf([&] { second->exchange().SendDirect(L"w"); }), 9);
  second->Cerrar();
  EXPECT_EQ(errorOfOpening(*second).number(), 40001);
  second.reset();
  EXPECT_TRUE(bench.printer().blocks.empty());
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
}

TEST(Opening, NumberWithAnAddressIsThatPrinterAndNoOther) {
  SessionBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}});
  bench.world().settings.set(kPlacesSection, L"7", L"TCP:box:4000");
  bench.open();
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_TRUE(bench.world().serial.calls().empty());
  const auto second = bench.another();
  EXPECT_EQ(errorOfOpening(*second).description(), L"Error (-1): tcp:box:4000 - Port in use.");
  second->Abrir(8);
  EXPECT_EQ(bench.world().serial.opened(), std::vector<std::wstring>{L"COM8"});
  bench.clearTrace();
  bench.session().Abrir(7);
  EXPECT_EQ(bench.trace().front(), L"Abrir: COM7 = tcp:box:4000");
  EXPECT_EQ(bench.session().Execute(L"w"), 0) << "reopened";
}

TEST(Opening, ReleaseClosesThePort) {
  SessionBench bench;
  bench.another()->Abrir(7);
  bench.open();
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
}

TEST(Opening, TestModeOpensNoPortAndCollectsCommands) {
  SessionBench bench({{L"TestMode", L"True"}});
  bench.session().Abrir(7);
  EXPECT_EQ(bench.world().views.created.size(), 1U) << "before any command";
  EXPECT_EQ(bench.session().Execute(L"80 a"), 0);
  bench.session().exchange().SendDirect(L"80 a");
  EXPECT_EQ(bench.session().exchange().GetResponse(L"S1"), (Lines{L"Ok"}));
  bench.session().exchange().GetStatus();
  bench.session().exchange().SendAck();
  bench.session().exchange().NextStatusBlock();
  ASSERT_EQ(bench.world().views.created.size(), 1U);
  EXPECT_EQ(bench.world().views.created[0]->lines,
            (Lines{L"80 a", L"SendDirect: 80[032]a", L"GET RESPONSE: S1"}));
  bench.session().Cerrar();
  EXPECT_EQ(bench.world().views.created[0]->shown, 1);
  EXPECT_TRUE(bench.world().serial.calls().empty());
}

TEST(Opening, ReleaseShowsAViewWhereLinesWereNotShownYet) {
  using Use = void (*)(PrinterSession & session);
  const Use open = [](PrinterSession& session) { session.Abrir(7); };
  const Use send = [](PrinterSession& session) { session.exchange().SendDirect(L"w"); };
  const Use close = [](PrinterSession& session) { session.Cerrar(); };
  const struct {
    const char* reason;
    const wchar_t* mode;
    std::vector<Use> uses;
    int shown;
  } kCases[] = {
      {"nothing to show", L"TestMode", {}, 0},
      {"never closed", L"TestMode", {send}, 1},
      {"read already", L"TestMode", {send, close}, 1},
      {"a line came after", L"TestMode", {send, close, send}, 2},
      {"closed twice by the host", L"TestMode", {send, close, close}, 2},
      {"the debug view, never closed", L"DebugInmediato", {open}, 1},
      {"the debug view, once", L"DebugInmediato", {open, close}, 1},
  };
  for (const auto& item : kCases) {
    const bool isDebug = item.mode == std::wstring(L"DebugInmediato");
    SessionBench bench({{L"IsDebug", isDebug ? L"True" : L"False"}, {item.mode, L"True"}});
    auto session = bench.another();
    for (const Use use : item.uses) use(*session);
    session.reset();
    const auto& views = bench.world().views.created;
    EXPECT_EQ(views.empty() ? 0 : views.back()->shown, item.shown) << item.reason;
  }
}

TEST(Opening, DrawerTellsTrueForTrouble) {
  SessionBench bench;
  EXPECT_TRUE(bench.session().AbrirGaveta()) << "no port";
  bench.open();
  EXPECT_FALSE(bench.session().AbrirGaveta());
}

TEST(Opening, NewestSessionSetsTheSharedFlags) {
  SessionBench bench({{L"IsDebug", L"True"}, {L"TestMode", L"True"}});
  EXPECT_TRUE(bench.thread().trace().isOn());
  bench.world().settings.set(kSessionSection, L"IsDebug", L"False");
  bench.world().settings.set(kSessionSection, L"TestMode", L"no");
  const auto second = bench.another();
  EXPECT_FALSE(bench.thread().trace().isOn());
  EXPECT_FALSE(bench.thread().process().testMode);
  EXPECT_TRUE(bench.session().exchange().state().testMode) << "a session keeps what it read";
}

}  // namespace
}  // namespace corvid
