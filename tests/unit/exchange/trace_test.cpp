// What the trace tells of an exchange.
#include "support/session_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(Exchange, TraceTellsEveryStepOfACommand) {
  OpenBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}});
  bench.world().clock.setSeconds(36000.5F);
  bench.clearTrace();
  bench.printer().answersToBlock = {{"\x15"}, {"\5~", "\6!"}};
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
                               L"<-[ENQ]~[ACK]!",
                               L" <- ENQ",
                               L" -> ACK",
                               L"WaitForReply (ready = False): <-",
                               L" <- ACK",
                               L"Discarded: <-!",
                           }));
}

TEST(Exchange, TraceTellsATimeOutDamageAndAShortWrite) {
  OpenBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}, {L"TimeOut", L"1"}});
  bench.clearTrace();
  bench.printer().answersToAck = {{"x"}};
  bench.exchange().SendAck();
  Lines lines = bench.trace();
  lines.erase(lines.begin(), lines.begin() + 2);  // the request
  EXPECT_EQ(lines, (Lines{L"<-x", L"WaitForReply (ready = False): <-x", L"TIMEOUT!",
                          L"ResponseComplete: x", L"WaitForReply Failed... COMM ERROR?"}));
  bench.clearTrace();
  bench.printer().answersToAck = {{"\2A\3?"}};
  bench.exchange().SendAck();
  EXPECT_THAT(bench.trace(), testing::Contains(L"Wrong check byte"));
  bench.world().serial.shortenWrite(2, 1);
  bench.session().Execute(L"w");
  EXPECT_THAT(bench.trace(), testing::Contains(L"bytesWritten = 3; Expected = 4"));
}

TEST(Exchange, TraceTellsWhatIsDroppedAndWhatIsNotChecked) {
  OpenBench bench({{L"IsDebug", L"True"},
                   {L"DebugInmediato", L"True"},
                   {L"TimeOut", L"1"},
                   {L"VerificarRespuesta", L"True"}});
  bench.clearTrace();
  bench.printer().answersToStatus = {{"\2A\3B", "\x02\x60\x40\x03"}};
  bench.world().serial.deliver("~");
  bench.world().serial.deliver("!", 0.02);
  bench.exchange().GetStatus();
  EXPECT_THAT(
      bench.trace(),
      testing::IsSupersetOf({L"Discarded: <-~", L"Discarded: <-!", L"Dropped: <-[STX]A[ETX]",
                             L"No check byte", L"WaitForReply (ready = False): <-[STX]`@[ETX]"}));
  bench.clearTrace();
  bench.printer().answersToAck = {{"\2A\3?"}};
  bench.exchange().SendAck();
  EXPECT_THAT(
      bench.trace(),
      testing::IsSupersetOf({L"Wrong check byte", L"WaitForReply (ready = False): <-[STX]A[ETX]"}));
  bench.exchange().ExecuteNoCheck(L"80 a");
  bench.exchange().SendDirect(L"80 b");
  EXPECT_THAT(bench.trace(),
              testing::IsSupersetOf({L"ExecuteNoCheck: -> 80[032]a", L"SendDirect: -> 80[032]b"}));
}

TEST(Exchange, MessagesGoToTheTraceBySetting) {
  OpenBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}, {L"SinMensajes", L"True"}});
  bench.exchange().dialog().show(L"words", L"title", MessageIcon::Critical);
  EXPECT_EQ(bench.trace().back(), L"Message: title: words");
  EXPECT_TRUE(bench.world().dialog.shown.empty());
}

}  // namespace
}  // namespace corvid
