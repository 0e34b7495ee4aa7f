// What one exchange writes, waits for and leaves behind.
#include "support/session_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(Exchange, StatusReplySetsBothBytesAndEmptiesTheResult) {
  OpenBench bench;
  bench.session().exchange().GetStatus();
  const Outcome& outcome = bench.outcome();
  EXPECT_EQ(outcome.STS1, 0x60);
  EXPECT_EQ(outcome.STS2, 0x40);
  EXPECT_EQ(outcome.pfError, pfOk);
  EXPECT_EQ(outcome.resultFlag, ETX);
  EXPECT_EQ(outcome.DescripcionError, L"Ok");
  EXPECT_EQ(outcome.result, L"");
}

TEST(Exchange, SilentLineIsLookedAtLessOftenAfterAMoment) {
  OpenBench bench({{L"TimeOut", L"1"}});
  bench.world().clock.setSeconds(0);  // where single precision is finest
  bench.world().clock.restSeconds = 0.01;
  bench.printer().answersToStatus = {Answer{}};
  bench.session().exchange().GetStatus();
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
  EXPECT_NEAR(bench.world().clock.longRests, 75, 2) << "behind the first quarter of a second";
}

TEST(Exchange, CollectsAReplyHoweverTheLineDeliversIt) {
  const struct {
    Answer reply;
    std::wstring result;
    std::int32_t flag;
    std::int32_t error;
    std::size_t acknowledged;  // ENQs of the printer answered with ACK
    const char* reason;
  } kCases[] = {
      {{"\2A\nB\3\n"}, L"\2A\nB\3", ETX, pfOk, 0, "the check byte is dropped"},
      {{"\2", "A", "\n", "B", "\3"}, L"\2A\nB\3", ETX, pfOk, 0, "byte by byte"},
      {{"\5\2A\3"}, L"\2A\3", ETX, pfOk, 1, "ENQ in front is not kept"},
      {{"\5", "\2A\3"}, L"\2A\3", ETX, pfOk, 1, "ENQ in a chunk of its own"},
      {{"\5\6"}, L"", ACK, pfOk, 1, "what follows a dropped ENQ is looked at again"},
      {{"\2A\4"}, L"\2A\4", ETX, pfOk, 0, "EOT ends like ETX"},
      {{"\2A\x17V"}, L"\2A\x17", ETB, pfOk, 0, "more blocks follow"},
      {{"\2\x14\x17\3"}, L"\2\x14\x17", ETB, pfOk, 0, "a check byte equal to ETX is no end"},
      {{"\2A\3\x17"}, L"\2A\3", ETX, pfOk, 0, "a check byte equal to ETB neither"},
      {{"\6noise"}, L"", ACK, pfOk, 0, "the first byte decides"},
      {{"~\2A\3"}, L"~\2A\3", ETX, pfOk, 0, "noise in front is kept"},
      {{"\2half"}, L"\2half", ETX, pfCommError, 0, "half a block ends by time-out"},
  };
  for (const auto& item : kCases) {
    OpenBench bench;
    bench.printer().answersToAck.push_back(item.reply);
    bench.session().exchange().SendAck();
    EXPECT_EQ(bench.outcome().result, item.result) << item.reason;
    EXPECT_EQ(bench.outcome().resultFlag, item.flag) << item.reason;
    EXPECT_EQ(bench.outcome().pfError, item.error) << item.reason;
    EXPECT_EQ(bench.printer().acks, item.acknowledged + 1) << item.reason;
  }
}

TEST(Exchange, CommandIsTriedSevenTimesAndSilenceCostsAStatusRequest) {
  using Answers = std::deque<Answer>;
  const Answer refusal = {"\x15"};
  const struct {
    Answers toStatus;
    Answers toBlock;
    std::int32_t result;
    std::int32_t flag;
    std::size_t blocks;
    std::size_t statusRequests;
    std::wstring description;
    const char* reason;
  } kCases[] = {
      {{}, {}, pfOk, ACK, 1, 1, L"Ok", "accepted"},
      {{}, Answers(9, refusal), pfOk, NAK, 7, 1, L"Ok", "refused: the status' own outcome"},
      {{}, {refusal, {}, {"\x06"}}, pfOk, ACK, 3, 2, L"Ok", "silence behind a refusal"},
      {{}, Answers(7), pfCommError, ETX, 7, 7, L"pfError de comunicacion", "never answered"},
      {Answers(20), {}, pfOk, ACK, 1, 21, L"Ok", "a silent status costs no attempt"},
  };
  for (const auto& item : kCases) {
    OpenBench bench;
    bench.printer().answersToStatus = item.toStatus;
    bench.printer().answersToBlock = item.toBlock;
    EXPECT_EQ(bench.session().Execute(L"w"), item.result) << item.reason;
    EXPECT_EQ(bench.printer().blocks, std::vector<std::string>(item.blocks, "\x02w\x03t"));
    EXPECT_EQ(bench.printer().statusRequests, item.statusRequests) << item.reason;
    EXPECT_EQ(bench.outcome().resultFlag, item.flag) << item.reason;
    EXPECT_EQ(bench.outcome().DescripcionError, item.description) << item.reason;
  }
}

TEST(Exchange, WaitAcrossMidnightGoesOnUntilTheReplyCompletes) {
  OpenBench bench;
  bench.world().clock.setSeconds(86399.0F);
  bench.printer().delaySeconds = 120;  // far beyond the ten seconds of the time-out
  bench.session().exchange().GetStatus();
  EXPECT_EQ(bench.outcome().pfError, pfOk);
  EXPECT_EQ(bench.outcome().STS1, 0x60);
}

TEST(Exchange, WaitEndsAfterTheConfiguredSeconds) {
  OpenBench bench({{L"TimeOut", L"3"}});
  bench.world().clock.setSeconds(100.0F);
  bench.printer().answersToStatus = {{}};
  bench.session().exchange().GetStatus();
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
  EXPECT_NEAR(bench.world().clock.secondsSinceMidnight(), 103.0F, 0.1F);
}

TEST(Exchange, UncheckedModeWritesTheBlockAndReadsNothing) {
  OpenBench bench({{L"SkipChecks", L"True"}});
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
  bench.session().exchange().ExecuteNoCheck(L"w");
  bench.session().exchange().GetStatus();
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
  EXPECT_EQ(errorOf([&] { bench.session().exchange().SendDirect(L"w"); }), 9);
  EXPECT_EQ(errorOf([&] { bench.session().exchange().SendAck(); }), 9);
  EXPECT_EQ(errorOf([&] { bench.session().exchange().NextStatusBlock(); }), 9);
  EXPECT_TRUE(bench.world().serial.written().empty());
}

TEST(Exchange, PortThatVanishesEndsTheCommandAndOpensAgain) {
  const struct {
    const char* call;
    int nth;
    const char* reason;
  } kCases[] = {
      {"writeFile", 1, "before the status request"},
      {"clearCommError", 1, "in the wait for the status"},
      {"readFile", 1, "while the status is read"},
      {"writeFile", 2, "between status and command"},
      {"clearCommError", 2, "in the wait for the answer"},
      {"readFile", 2, "while the answer is read"},
  };
  for (const auto& item : kCases) {
    OpenBench bench({{L"TimeOut", L"1"}});
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
  OpenBench bench;
  bench.printer().answersToStatus.assign(1000, {});
  bench.atYield(10, [&] { bench.session().Cerrar(); });
  EXPECT_EQ(bench.session().Execute(L"w"), pfCommError);
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
  EXPECT_TRUE(bench.printer().blocks.empty());
  EXPECT_TRUE(bench.world().dialog.shown.empty());
}

TEST(Exchange, CommandIsNotSentToAPortReopenedMeanwhile) {
  OpenBench bench;
  bench.atYield(1, [&] {
    bench.session().Cerrar();
    bench.session().Abrir(8);
  });
  EXPECT_EQ(bench.session().Execute(L"w"), pfCommError);
  EXPECT_TRUE(bench.printer().blocks.empty());
}

TEST(Exchange, ShortWriteIsTraced) {
  OpenBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}});
  bench.world().serial.shortenWrite(2, 1);
  bench.session().Execute(L"w");
  EXPECT_THAT(bench.trace(), testing::Contains(L"bytesWritten = 3; Expected = 4"));
}

TEST(Exchange, TraceTellsEveryStepOfACommand) {
  OpenBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}});
  bench.world().clock.setSeconds(36000.5F);
  bench.clearTrace();
  bench.printer().answersToBlock = {{"\x15"}, {"\x06"}};
  bench.session().Execute(L"80 a");
  EXPECT_EQ(bench.trace(), (Lines{
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
  OpenBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}, {L"TimeOut", L"1"}});
  bench.clearTrace();
  bench.printer().answersToAck = {{"\x05", "x"}};
  bench.session().exchange().SendAck();
  Lines lines = bench.trace();
  lines.erase(lines.begin(), lines.begin() + 2);  // the request
  EXPECT_EQ(lines, (Lines{L"<-[ENQ]", L" <- ENQ", L" -> ACK", L"WaitForReply (ready = False): <-",
                          L"<-x", L"WaitForReply (ready = False): <-x", L"TIMEOUT!",
                          L"ResponseComplete: x", L"WaitForReply Failed... COMM ERROR?"}));
}

}  // namespace
}  // namespace corvid
