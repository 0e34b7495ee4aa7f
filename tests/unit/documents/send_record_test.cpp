// What a host is told of its last command where no printer was asked.
#include "documents/item_lines.h"
#include "support/session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(LastSend, IsUnsentOrUncertainWithoutAPrinterThatIsAsked) {
  const struct {
    const char* reason;
    void (*send)(SessionBench& bench);
    EnviosPF outcome;
    int blocks;
  } cases[] = {
      {"closed port",
       [](SessionBench& bench) {
         bench.session().Cerrar();
         bench.session().Execute(L"101");
       },
       envNoEnviado, 0},
      {"refused argument",
       [](SessionBench& bench) { PasarItem(bench.session(), L"A\x03", Currency(), 1, 0); },
       envNoEnviado, 0},
      {"negative quantity",
       [](SessionBench& bench) { PasarItem(bench.session(), L"A", Currency(), -1, 0); },
       envNoEnviado, 0},
      {"no rates to be had",
       [](SessionBench& bench) { PasarItem(bench.session(), L"A", Currency(), 1, 16); },
       envNoEnviado, 0},
      {"unchecked command", [](SessionBench& bench) { bench.exchange().ExecuteNoCheck(L"101"); },
       envIncierto, 1},
      {"direct command", [](SessionBench& bench) { bench.exchange().SendDirect(L"101"); },
       envIncierto, 1},
      {"direct command that the port does not take",
       [](SessionBench& bench) {
         bench.world().serial.shortenWrite(1, 6);
         bench.exchange().SendDirect(L"101");
       },
       envNoEnviado, 0},
      {"unchecked mode",
       [](SessionBench& bench) {
         bench.exchange().state().skipChecks = true;
         bench.session().Execute(L"101");
       },
       envIncierto, 1},
      {"test mode",
       [](SessionBench& bench) {
         bench.exchange().state().testMode = true;
         bench.session().Execute(L"101");
       },
       envAceptado, 0},
      {"query in unchecked mode",
       [](SessionBench& bench) {
         bench.exchange().state().skipChecks = true;
         EXPECT_EQ(bench.exchange().GetResponse(L"S2"), Lines{L"VOID"});
       },
       envNoEnviado, 0},
      {"accepted query",
       [](SessionBench& bench) {
         bench.printer().answers["S2"] = blockOf("1");
         static_cast<void>(bench.exchange().GetResponse(L"S2"));
       },
       envAceptado, 1},
  };
  for (const auto& one : cases) {
    OpenBench bench;
    EXPECT_EQ(envNinguno, bench.exchange().lastSend().outcome()) << one.reason;
    bench.printer().answers["S3"] = {"\x15"};
    bench.session().Execute(L"100");
    one.send(bench);
    EXPECT_EQ(one.outcome, bench.exchange().lastSend().outcome()) << one.reason;
    EXPECT_EQ(one.blocks, bench.exchange().lastSend().blocks()) << one.reason;
  }
}

// A host's timer sees that the session is busy, and the command it interrupts keeps its record.
TEST(LastSend, IsBusyWhileACommandIsUnderWay) {
  OpenBench bench;
  bool wasBusy = false;
  bench.atYield(1, [&] {
    wasBusy = bench.exchange().isBusy();
    bench.session().Execute(L"refused");
  });
  bench.session().Execute(L"101");
  EXPECT_TRUE(wasBusy);
  EXPECT_FALSE(bench.exchange().isBusy());
  EXPECT_EQ(envAceptado, bench.exchange().lastSend().outcome());
}

}  // namespace
}  // namespace corvid
