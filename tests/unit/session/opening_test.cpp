// Opening and closing sessions, alone and beside each other.
#include "session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(Opening, ConfiguresThePortAsksTheStatusAndLearnsTheSerial) {
  SessionBench bench;
  bench.printer().answersToBlock = {{kShortS1}};
  bench.session().Abrir(7);
  EXPECT_EQ(bench.session().state().SerialPrinter, L"Z7A0000042");
  EXPECT_EQ(bench.library().lastSerial, L"Z7A0000042");
  EXPECT_EQ(bench.session().tipoPrinter(), HKA112);
  const std::vector<std::string> calls = bench.world().serial.calls();
  const std::vector<std::string> expected = {
      "createFile",   "setupComm",    "purgeComm",          "setCommTimeouts",   "getCommState",
      "buildCommDcb", "setCommState", "escapeCommFunction", "escapeCommFunction"};
  ASSERT_GE(calls.size(), expected.size());
  EXPECT_EQ(std::vector<std::string>(calls.begin(), calls.begin() + 9), expected);
}

TEST(Opening, KnownSerialIsNotAskedFor) {
  SessionBench bench;
  bench.open();
  EXPECT_EQ(bench.session().state().SerialPrinter, L"KNOWN");
  EXPECT_TRUE(bench.printer().blocks.empty());
}

TEST(Opening, NumberOutsideTheTableChangesNothing) {
  SessionBench bench;
  bench.open();
  for (const std::int16_t port : {std::int16_t{0}, std::int16_t{100}, std::int16_t{-1}}) {
    EXPECT_EQ(errorNumberOf([&] { bench.session().Abrir(port); }), 9) << port;
  }
  EXPECT_EQ(bench.session().Execute(L"w"), 0) << "the open port still serves";
}

TEST(Opening, FailureOfAnyCallIsRaisedAndTheNextOpeningWorks) {
  const char* const calls[] = {"createFile",   "setupComm",    "purgeComm",   "setCommTimeouts",
                               "getCommState", "buildCommDcb", "setCommState"};
  for (const char* call : calls) {
    SessionBench bench;
    bench.session().state().SerialPrinter = L"KNOWN";
    bench.world().serial.failNth(call, 1, 5);
    try {
      bench.session().Abrir(7);
      FAIL() << call;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), 40001) << call;
      EXPECT_EQ(error.source(), L"PrinterFiscal.Abrir");
      EXPECT_TRUE(error.description().starts_with(L"Error (5): CommOpen (")) << call;
    }
    EXPECT_EQ(bench.session().state().port, 7) << call;
    bench.session().Abrir(7);
    EXPECT_EQ(bench.session().Execute(L"w"), 0) << call;
  }
}

TEST(Opening, RefusedLineSignalsDoNotMatter) {
  SessionBench bench;
  bench.session().state().SerialPrinter = L"KNOWN";
  bench.world().serial.failFrom("escapeCommFunction", 1, 50);
  bench.session().Abrir(7);
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
}

TEST(Opening, PortOfAnotherSessionIsNeitherWrittenNorClosed) {
  SessionBench bench;
  bench.open();
  {
    PrinterFiscal second(bench.library(), bench.status());
    try {
      second.Abrir(7);
      FAIL() << "the port is in use";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.description(), L"Error (-1): CommOpen - Port in use.");
    }
    EXPECT_EQ(second.Execute(L"w"), pfCommError);
    EXPECT_EQ(errorNumberOf([&] { second.SendDirect(L"w"); }), 9);
    second.Cerrar();
    EXPECT_THROW(second.Abrir(7), RunTimeError);
  }
  EXPECT_TRUE(bench.printer().blocks.empty());
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
}

TEST(Opening, TwoSessionsHoldTwoPorts) {
  SessionBench bench;
  bench.open();
  PrinterFiscal second(bench.library(), bench.status());
  second.state().SerialPrinter = L"KNOWN";
  second.Abrir(8);
  second.Cerrar();
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(second.Execute(L"w"), pfCommError);
}

TEST(Opening, ReleaseClosesThePort) {
  SessionBench bench;
  {
    PrinterFiscal first(bench.library(), bench.status());
    first.state().SerialPrinter = L"KNOWN";
    first.Abrir(7);
  }
  bench.open();
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
}

TEST(Opening, TestModeOpensNoPortAndCollectsCommands) {
  SessionBench bench({{L"TestMode", L"True"}});
  bench.session().Abrir(7);
  EXPECT_EQ(bench.session().Execute(L"80 a"), 0);
  bench.session().SendDirect(L"80 a");
  EXPECT_EQ(bench.session().GetResponse(L"S1"), (Lines{L"Ok"}));
  bench.session().GetStatus();
  bench.session().SendAck();
  bench.session().NextStatusBlock();
  ASSERT_EQ(bench.world().views.created.size(), 1U);
  EXPECT_EQ(bench.world().views.created[0]->lines,
            (std::vector<std::wstring>{L"80 a", L"SendDirect: 80[032]a", L"GET RESPONSE: S1"}));
  bench.session().Cerrar();
  EXPECT_EQ(bench.world().views.created[0]->shown, 1);
  EXPECT_TRUE(bench.world().serial.calls().empty());
}

// How often a view was shown when a session that was used, and released then, has gone.
int showings(std::initializer_list<Setting> settings,
             const std::function<void(PrinterFiscal&)>& use) {
  SessionBench bench(settings);
  {
    PrinterFiscal session(bench.library(), bench.status());
    session.state().SerialPrinter = L"KNOWN";
    use(session);
  }
  return bench.world().views.created.empty() ? 0 : bench.world().views.created.back()->shown;
}

TEST(Opening, ReleaseShowsThePreviewWhereLinesWereNotShownYet) {
  const auto send = [](PrinterFiscal& session) { session.SendDirect(L"w"); };
  const auto close = [](PrinterFiscal& session) { session.Cerrar(); };
  struct Case {
    const char* reason;
    std::vector<std::function<void(PrinterFiscal&)>> uses;
    int shown;
  };
  const Case cases[] = {
      {"nothing to show", {}, 0},
      {"never closed", {send}, 1},
      {"read already", {send, close}, 1},
      {"a line came after", {send, close, send}, 2},
      {"closed twice by the host", {send, close, close}, 2},
  };
  for (const Case& c : cases) {
    const auto useAll = [&c](PrinterFiscal& session) {
      for (const auto& use : c.uses) use(session);
    };
    EXPECT_EQ(showings({{L"TestMode", L"True"}}, useAll), c.shown) << c.reason;
  }
}

TEST(Opening, ReleaseShowsTheDebugViewOnce) {
  const auto open = [](PrinterFiscal& session) { session.Abrir(7); };
  const auto openAndClose = [](PrinterFiscal& session) {
    session.Abrir(7);
    session.Cerrar();
  };
  const Setting on = {L"IsDebug", L"True"};
  EXPECT_EQ(showings({on, {L"DebugInmediato", L"True"}}, open), 1);
  EXPECT_EQ(showings({on, {L"DebugInmediato", L"True"}}, openAndClose), 1);
}

TEST(Opening, DrawerTellsTrueForTrouble) {
  SessionBench bench;
  EXPECT_TRUE(bench.session().AbrirGaveta()) << "no port";
  bench.open();
  EXPECT_FALSE(bench.session().AbrirGaveta());
}

TEST(Opening, NewestSessionSetsTheSharedFlags) {
  SessionBench bench({{L"IsDebug", L"True"}, {L"TestMode", L"True"}});
  EXPECT_TRUE(bench.library().trace().isDebug);
  bench.world().settings.set(kSessionSection, L"IsDebug", L"False");
  bench.world().settings.set(kSessionSection, L"TestMode", L"no");
  PrinterFiscal second(bench.library(), bench.status());
  EXPECT_FALSE(bench.library().trace().isDebug);
  EXPECT_FALSE(bench.library().testMode);
  EXPECT_TRUE(bench.session().state().testMode) << "a session keeps what it read";
}

}  // namespace
}  // namespace corvid
