// What one exchange writes, waits for and leaves behind.
#include "session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(Exchange, StatusReplySetsBothBytesAndEmptiesTheResult) {
  SessionBench bench;
  bench.open();
  bench.session().GetStatus();
  const Outcome& outcome = bench.outcome();
  EXPECT_EQ(outcome.STS1, 0x60);
  EXPECT_EQ(outcome.STS2, 0x40);
  EXPECT_EQ(outcome.pfError, pfOk);
  EXPECT_EQ(outcome.resultFlag, ETX);
  EXPECT_EQ(outcome.DescripcionError, L"Ok");
  EXPECT_EQ(outcome.result, L"");
}

TEST(Exchange, SilentLineIsLookedAtLessOftenAfterAMoment) {
  SessionBench bench({{L"TimeOut", L"1"}});
  bench.open();
  bench.world().clock.setSeconds(0);  // where single precision is finest
  bench.world().clock.restSeconds = 0.01;
  bench.printer().answersToStatus = {Answer{}};
  bench.session().GetStatus();
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
  EXPECT_NEAR(bench.world().clock.longRests, 75, 2) << "behind the first quarter of a second";
}

struct ReplyCase {
  Answer reply;
  std::wstring result;
  std::int32_t flag;
  std::int32_t error;
  std::size_t acknowledged;  // ENQs of the printer answered with ACK
  const char* reason;
};

TEST(Exchange, CollectsAReplyHoweverTheLineDeliversIt) {
  const ReplyCase cases[] = {
      {{"\x02"
        "A\nB\x03\x0A"},
       L"\x02"
       L"A\nB\x03",
       ETX,
       pfOk,
       0,
       "the check byte is dropped"},
      {{"\x02", "A", "\n", "B", "\x03"},
       L"\x02"
       L"A\nB\x03",
       ETX,
       pfOk,
       0,
       "byte by byte"},
      {{"\x05\x02"
        "A\x03"},
       L"\x02"
       L"A\x03",
       ETX,
       pfOk,
       1,
       "ENQ in front is not kept"},
      {{"\x05",
        "\x02"
        "A\x03"},
       L"\x02"
       L"A\x03",
       ETX,
       pfOk,
       1,
       "ENQ in a chunk of its own"},
      {{"\x05\x06"}, L"", ACK, pfOk, 1, "what follows a dropped ENQ is looked at again"},
      {{"\x02"
        "A\x04"},
       L"\x02"
       L"A\x04",
       ETX,
       pfOk,
       0,
       "EOT ends like ETX"},
      {{"\x02"
        "A\x17\x56"},
       L"\x02"
       L"A\x17",
       ETB,
       pfOk,
       0,
       "more blocks follow"},
      {{"\x02"
        "\x14\x17\x03"},
       L"\x02\x14\x17",
       ETB,
       pfOk,
       0,
       "a check byte equal to ETX is no end"},
      {{"\x02"
        "A\x03\x17"},
       L"\x02"
       L"A\x03",
       ETX,
       pfOk,
       0,
       "a check byte equal to ETB neither"},
      {{"\x06"
        "noise"},
       L"",
       ACK,
       pfOk,
       0,
       "the first byte decides"},
      {{"~\x02"
        "A\x03"},
       L"~\x02"
       L"A\x03",
       ETX,
       pfOk,
       0,
       "noise in front is kept"},
      {{"\x02half"}, L"\x02half", ETX, pfCommError, 0, "half a block ends by time-out"},
  };
  for (const ReplyCase& item : cases) {
    SessionBench bench;
    bench.open();
    bench.printer().answersToAck.push_back(item.reply);
    bench.session().SendAck();
    EXPECT_EQ(bench.outcome().result, item.result) << item.reason;
    EXPECT_EQ(bench.outcome().resultFlag, item.flag) << item.reason;
    EXPECT_EQ(bench.outcome().pfError, item.error) << item.reason;
    EXPECT_EQ(bench.printer().acks, item.acknowledged + 1) << item.reason;
  }
}

TEST(Exchange, AcceptedCommandCostsOneStatusRequestAndOneBlock) {
  SessionBench bench;
  bench.open();
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().statusRequests, 1U);
  EXPECT_EQ(bench.printer().blocks, (std::vector<std::string>{"\x02w\x03t"}));
  EXPECT_EQ(bench.outcome().resultFlag, ACK);
}

TEST(Exchange, SevenRefusalsWriteSevenBlocksAndReturnTheStatusOutcome) {
  SessionBench bench;
  bench.open();
  for (int i = 0; i < 9; ++i) bench.printer().answersToBlock.push_back({"\x15"});
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().blocks.size(), 7U);
  EXPECT_EQ(bench.printer().statusRequests, 1U);
  EXPECT_EQ(bench.outcome().resultFlag, NAK);
}

TEST(Exchange, SilenceAfterARefusalAsksForTheStatusAgain) {
  SessionBench bench;
  bench.open();
  bench.printer().answersToBlock = {{"\x15"}, {}, {"\x06"}};
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().blocks.size(), 3U);
  EXPECT_EQ(bench.printer().statusRequests, 2U);
  EXPECT_EQ(bench.outcome().resultFlag, ACK);
}

TEST(Exchange, UnansweredCommandIsSentSevenTimesEachBehindItsOwnStatus) {
  SessionBench bench;
  bench.open();
  bench.printer().answersToBlock.assign(7, {});
  EXPECT_EQ(bench.session().Execute(L"w"), pfCommError);
  EXPECT_EQ(bench.printer().blocks.size(), 7U);
  EXPECT_EQ(bench.printer().statusRequests, 7U);
  EXPECT_EQ(bench.outcome().DescripcionError, L"pfError de comunicacion");
}

TEST(Exchange, SilentStatusCostsNoAttempt) {
  SessionBench bench;
  bench.open();
  bench.printer().answersToStatus.assign(20, {});
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().statusRequests, 21U);
  EXPECT_EQ(bench.printer().blocks.size(), 1U);
}

TEST(Exchange, WaitAcrossMidnightGoesOnUntilTheReplyCompletes) {
  SessionBench bench;
  bench.open();
  bench.world().clock.setSeconds(86399.0F);
  bench.printer().delaySeconds = 120;  // far beyond the ten seconds of the time-out
  bench.session().GetStatus();
  EXPECT_EQ(bench.outcome().pfError, pfOk);
  EXPECT_EQ(bench.outcome().STS1, 0x60);
}

TEST(Exchange, WaitEndsAfterTheConfiguredSeconds) {
  SessionBench bench({{L"TimeOut", L"3"}});
  bench.open();
  bench.world().clock.setSeconds(100.0F);
  bench.printer().answersToStatus = {{}};
  bench.session().GetStatus();
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
  EXPECT_NEAR(bench.world().clock.secondsSinceMidnight(), 103.0F, 0.1F);
}

TEST(Exchange, UncheckedModeWritesTheBlockAndReadsNothing) {
  SessionBench bench({{L"SkipChecks", L"True"}});
  bench.open();
  bench.world().serial.clearLog();
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().blocks, (std::vector<std::string>{"\x02w\x03t"}));
  EXPECT_EQ(bench.printer().statusRequests, 0U);
  EXPECT_EQ(bench.world().serial.count("clearCommError"), 0U);
  EXPECT_EQ(bench.outcome().DescripcionError, L"NO_STATUS_CHECK");
  EXPECT_EQ(bench.outcome().resultFlag, ACK);
}

TEST(Exchange, ClosedSessionWritesNothing) {
  SessionBench bench;
  EXPECT_EQ(bench.session().Execute(L"w"), pfCommError);
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
  bench.session().ExecuteNoCheck(L"w");
  bench.session().GetStatus();
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
  EXPECT_EQ(errorNumberOf([&] { bench.session().SendDirect(L"w"); }), 9);
  EXPECT_EQ(errorNumberOf([&] { bench.session().SendAck(); }), 9);
  EXPECT_EQ(errorNumberOf([&] { bench.session().NextStatusBlock(); }), 9);
  EXPECT_TRUE(bench.world().serial.written().empty());
}

struct VanishCase {
  const char* call;
  int nth;
  const char* reason;
};

TEST(Exchange, PortThatVanishesEndsTheCommandAndOpensAgain) {
  const VanishCase cases[] = {
      {"writeFile", 1, "before the status request"},
      {"clearCommError", 1, "in the wait for the status"},
      {"readFile", 1, "while the status is read"},
      {"writeFile", 2, "between status and command"},
      {"clearCommError", 2, "in the wait for the answer"},
      {"readFile", 2, "while the answer is read"},
  };
  for (const VanishCase& item : cases) {
    SessionBench bench({{L"TimeOut", L"1"}});
    bench.open();
    bench.world().serial.failFrom(item.call, item.nth, 2);
    // Reads that fail cannot tell a vanished port from a silent printer; the next write does.
    bench.atYield(60, [&] { bench.world().serial.failFrom("writeFile", 1, 2); });
    EXPECT_EQ(bench.session().Execute(L"w"), pfCommError) << item.reason;
    bench.world().serial.repair();
    bench.session().Cerrar();
    bench.session().Abrir(7);
    EXPECT_EQ(bench.session().Execute(L"e"), 0) << item.reason;
  }
}

TEST(Exchange, HostThatClosesTheSessionInAWaitEndsIt) {
  SessionBench bench;
  bench.open();
  bench.printer().answersToStatus.assign(1000, {});
  bench.atYield(10, [&] { bench.session().Cerrar(); });
  EXPECT_EQ(bench.session().Execute(L"w"), pfCommError);
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
  EXPECT_TRUE(bench.printer().blocks.empty());
  EXPECT_TRUE(bench.world().dialog.shown.empty());
}

TEST(Exchange, CommandIsNotSentToAPortReopenedMeanwhile) {
  SessionBench bench;
  bench.open();
  bench.atYield(1, [&] {
    bench.session().Cerrar();
    bench.session().Abrir(8);
  });
  EXPECT_EQ(bench.session().Execute(L"w"), pfCommError);
  EXPECT_TRUE(bench.printer().blocks.empty());
}

TEST(Exchange, ShortWriteIsTraced) {
  SessionBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}});
  bench.open();
  bench.world().serial.shortenWrite(2, 1);
  bench.session().Execute(L"w");
  EXPECT_TRUE(bench.traced(L"bytesWritten = 3; Expected = 4"));
}

TEST(Exchange, TraceTellsEveryStepOfACommand) {
  SessionBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}});
  bench.open();
  bench.world().clock.setSeconds(36000.5F);
  bench.clearTrace();
  bench.printer().answersToBlock = {{"\x15"}, {"\x06"}};
  bench.session().Execute(L"80 a");
  EXPECT_EQ(bench.trace(), (std::vector<std::wstring>{
                               L"Execute: -> 80[032]a",
                               L"GetStatus: -> [ENQ]",
                               L"WaitForReply t = 36000.5; timeout = 10",
                               L"<-[STX]`@[ETX]#",
                               L"WaitForReply (ready = True): <-[STX]`@[ETX]",
                               L"ResponseComplete: [STX]`@[ETX]",
                               L"GetStatus: <- pfError = 0; resultFlag = 3, STS1=60, STS2= 40",
                               L"SEND -> [STX]80[032]a[ETX]J",
                               L"WaitForReply t = 36000.5; timeout = 10",
                               L"<-[NAK]",
                               L" <- NAK",
                               L"SEND -> [STX]80[032]a[ETX]J",
                               L"WaitForReply t = 36000.5; timeout = 10",
                               L"<-[ACK]",
                               L" <- ACK",
                           }));
}

TEST(Exchange, TraceTellsATimeOut) {
  SessionBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}, {L"TimeOut", L"1"}});
  bench.open();
  bench.clearTrace();
  bench.printer().answersToAck = {{"\x05", "x"}};
  bench.session().SendAck();
  const std::vector<std::wstring> lines = bench.trace();
  const std::vector<std::wstring> expected = {L"<-[ENQ]",
                                              L" <- ENQ",
                                              L" -> ACK",
                                              L"WaitForReply (ready = False): <-",
                                              L"<-x",
                                              L"WaitForReply (ready = False): <-x",
                                              L"TIMEOUT!",
                                              L"ResponseComplete: x",
                                              L"WaitForReply Failed... COMM ERROR?"};
  ASSERT_EQ(lines.size(), expected.size() + 2);
  EXPECT_EQ(std::vector<std::wstring>(lines.begin() + 2, lines.end()), expected);
}

}  // namespace
}  // namespace corvid
