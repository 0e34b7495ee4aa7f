// What must survive whatever happens in the middle of a sale: a failing call of the system, and
// whatever a host does when its message loop runs.
#include "shop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {
namespace {

using simulator::Fault;

struct Called {
  const wchar_t* name;
  bool isItem;
  bool failed;
  double seconds;
};
using Sale = std::vector<Called>;

// Everything that a sale does on the line: items with their rates' query, counters, rows, payment.
Sale sell(Shop& shop) {
  PrinterSession& session = *shop.session;
  Sale sale;
  const auto call = [&](const wchar_t* name, bool isItem, const std::function<bool()>& member) {
    const double start = shop.world.clock.total();
    const bool failed = member();
    sale.push_back({name, isItem, failed, shop.world.clock.total() - start});
  };
  const auto item = [&](const wchar_t* name) {
    call(name, true, [&] { return PasarItem(session, {name, 1, 1, 16}) != 0; });
  };
  item(L"PAN");
  call(L"S1", false, [&] { return Response1(session.exchange())->values.Serial.empty(); });
  call(L"U3A", false, [&] {
    const auto rows = session.exchange().GetMultipleResponses(L"U3A000001000002");
    return rows.size() != 2 || rows.back().size() < 2 || shop.outcome().pfError != pfOk;
  });
  item(L"QUESO");
  call(L"101", false, [&] { return CerrarComprobante(session, money(2.32)) != 0; });
  return sale;
}

std::ptrdiff_t failuresIn(const Sale& sale) {
  return std::ranges::count(sale, true, &Called::failed);
}

// Stated once, for all that is done to a sale.
void expectSurvived(Shop& shop, const Sale& sale) {
  for (const Called& one : sale) {
    if (!one.isItem) continue;
    const std::wstring_view name = one.name;
    const int times = countOf(shop.line.paper(), std::string(name.begin(), name.end()));
    EXPECT_LE(times, 1) << "a line stands there twice";
    EXPECT_TRUE(times == 1 || one.failed) << "a line is told as sold that is not there";
  }
  shop.world.pump.whenYielded = nullptr;
  shop.world.pump.isQuitting = false;
  shop.line.misbehaviour().reset();
  shop.world.faults.repair();
  shop.session->Cerrar();
  EXPECT_EQ(shop.world.serial.openHandles() + shop.world.sockets.openSockets(), 0U);
  EXPECT_EQ(shop.world.files.openFiles, 0);
  openKnown(shop);
  static_cast<void>(CancelarTransaccion(*shop.session));
  EXPECT_EQ(PasarItem(*shop.session, {L"DESPUES", 1, 1, 16}), 0);
  EXPECT_EQ(countOf(shop.line.paper(), "DESPUES"), 1);
}

using ShopSettings = std::initializer_list<ShopSetting>;

ShopSettings quickSettings() {
  static const ShopSettings kSettings = {{kSessionSection, L"TimeOut", L"1"}};
  return kSettings;
}

// With files, each line of which is a call that can fail.
ShopSettings tracedSettings() {
  static const ShopSettings kSettings = {
      {kSessionSection, L"TimeOut", L"1"},       {kSessionSection, L"IsDebug", L"True"},
      {kSessionSection, L"DEBUGFILE", L"t.log"}, {kPortSection, L"DEBUG", L"1"},
      {kPortSection, L"DumpFile", L"d.log"},
  };
  return kSettings;
}

// With rows to query.
void openAfterZ(Shop& shop) {
  openKnown(shop);
  for (int i = 0; i < 2; ++i) shop.session->Execute(L"I0Z");
}

// A call that fails once spoils nothing but an opening.
void sellWhereACallFails(Shop& shop, bool forGood) {
  const int error = errorOf([&] { openAfterZ(shop); });
  EXPECT_TRUE(error == 0 || error == 40001) << error;
  EXPECT_EQ(shop.exchange().state().port, 7) << "a failed opening keeps the number";
  const double start = shop.world.clock.total();
  Sale sale;
  if (error == 0) sale = sell(shop);
  for (const Called& one : sale) {
    const bool endsAtOne = one.name == std::wstring_view(L"U3A");  // at an ACK that is not written
    EXPECT_TRUE(forGood || endsAtOne || !one.failed) << one.name;
  }
  EXPECT_LT(shop.world.clock.total() - start, 2.5) << "a block or its status, once";
  expectSurvived(shop, sale);
}

// A printer in the network is lost when its peer hangs up.
TEST(Robustness, EachCallOfTheSystemMayFailOnceOrForGood) {
  const struct {
    const char* way;
    ShopSettings settings;
    const wchar_t* place;
    bool forGood;
    std::uint32_t error;
    int step;
  } kSweeps[] = {
      {"serial, once", quickSettings(), L"", false, 22, 1},
      {"serial, for good", quickSettings(), L"", true, 22, 1},
      {"with files, once", tracedSettings(), L"", false, 22, 9},
      {"tcp, once", quickSettings(), L"tcp:box:4000", false, 22, 1},
      {"tcp, the peer hangs up", quickSettings(), L"tcp:box:4000", false, SocketDouble::kHangUp, 1},
  };
  for (const auto& sweep : kSweeps) {
    int last = 1;
    for (int nth = 1; nth <= last; nth += sweep.step) {
      SCOPED_TRACE(std::string(sweep.way) + " at call " + std::to_string(nth));
      Shop shop(sweep.settings);
      shop.world.settings.set(kPlacesSection, L"7", sweep.place);
      if (sweep.forGood) {
        shop.world.faults.failFrom("", nth, sweep.error);
      } else {
        shop.world.faults.failNth("", nth, sweep.error);
      }
      sellWhereACallFails(shop, sweep.forGood || sweep.error == SocketDouble::kHangUp);
      last = std::max(last, shop.world.faults.count());
      if (HasFailure()) return;
    }
    EXPECT_GT(last, 60);
  }
}

using HostDoing = std::function<void(Shop& shop)>;

// Runs a sale once for each yield in it, with the host doing something there. To a silent printer,
// which would be waited for without end, for some of the yields in its first waits.
void atEachYield(const char* what, const HostDoing& doing,
                 const std::function<void(Shop& shop, const Sale& sale)>& after,
                 bool isSilent = false, ShopSettings settings = quickSettings()) {
  constexpr int kSilentYields = 1200;
  constexpr int kSilentStep = 31;
  for (int nth = 1; !isSilent || nth < kSilentYields; nth += isSilent ? kSilentStep : 1) {
    SCOPED_TRACE(std::string(what) + " at yield " + std::to_string(nth));
    Shop shop(settings);
    openAfterZ(shop);
    if (isSilent) shop.line.misbehaviour().set(Fault::Silent, simulator::kForEver);
    const int target = shop.world.pump.count + nth;
    bool isDone = false;
    shop.world.pump.whenYielded = [&] {
      if (isDone || shop.world.pump.count < target) return;
      isDone = true;
      doing(shop);
    };
    const Sale sale = sell(shop);
    if (!isDone) {
      EXPECT_GT(nth, 30);
      return;
    }
    after(shop, sale);
    expectSurvived(shop, sale);
    if (testing::Test::HasFailure()) return;
  }
}

using Nested = std::function<bool(PrinterSession& session)>;  // true: its failure value

const Lines kFailed = {L"pfError"};
const Customer kCustomer = {L"N", L"R", L"A"};
const Customer kBadCustomer = {L"N\x06", L"R", L"A"};
const ItemLine kBadItem = {L"N", 1, -1, 16};

const std::vector<Nested>& nestedMembers() {
  using S = PrinterSession;
  static const std::vector<Nested> kMembers = {
      [](S& s) { return s.Execute(L"w") == 3; },
      [](S& s) { return s.AbrirGaveta(); },
      [](S& s) { return s.Reset() == 3; },
      [](S& s) {
        s.exchange().ExecuteNoCheck(L"w");
        s.exchange().SendDirect(L"w");
        s.exchange().SendAck();
        s.exchange().GetStatus();
        return s.exchange().NextStatusBlock().empty();
      },
      [](S& s) { return s.exchange().GetResponse(L"S1") == kFailed; },
      [](S& s) { return s.exchange().GetResponseString(L"S1", L"|") == L"|pfError"; },
      [](S& s) { return s.exchange().GetMultipleResponses(L"U3A") == std::vector<Lines>{kFailed}; },
      [](S& s) { return PasarItem(s, kBadItem) == 3; },
      [](S& s) { return detalleGeneral(s, L"F+", general(kBadItem)) == 3; },
      [](S& s) { return PasarDatosCliente(s, kCustomer, {}) == 3; },
      [](S& s) { return PasarDatosClienteNC(s, kBadCustomer, L"", L"", {}) == 3; },
      [](S& s) { return PasarDatosClientePA(s, kCustomer, L"") == 3; },
      [](S& s) { return IniciarFactura(s, kCustomer) == 3; },
      [](S& s) { return SubTotal(s, true) && PasarMontoDescuento(s, money(1)); },
      [](S& s) { return CerrarConMedio(s, number(1), money(1)) == 3; },
      [](S& s) { return Response1(s.exchange())->values.Serial.empty(); },
      [](S& s) { return Response3(s.exchange())->values.isFake; },
      [](S& s) { return getEstadoDocumento(s.exchange())->values.NotaS2.empty(); },
      [](S& s) { return numeroUltimaFactura(s.exchange()) == -1; },
      [](S& s) { return tasa(s.exchange(), number(1)) == -1; },
      [](S& s) { return CerrarZ(s.exchange()) == nullptr; },
      [](S& s) { return loadResumenZ(s.exchange())->values.numeroUltimoZ == -1; },
      [](S& s) { return reportesZMF(s.exchange(), number(1), number(1)).empty(); },
      [](S& s) { return loadReporteZMF(s.exchange(), number(1)) == nullptr; },
      [](S& s) { return IndiceTasa(s, 16) <= 1; },
  };
  return kMembers;
}

// While a member waits or writes, others write nothing, change nothing and return their failure.
TEST(Robustness, MembersCalledInTheMiddleOfAnotherAreRefused) {
  Shop undisturbed(tracedSettings());
  openAfterZ(undisturbed);
  sell(undisturbed);
  atEachYield(
      "nested members",
      [&](Shop& shop) {
        const Outcome before = shop.outcome();
        const auto rates = shop.session->state().s3;
        const std::size_t written = shop.world.serial.written().size();
        for (std::size_t i = 0; i < nestedMembers().size(); ++i) {
          EXPECT_TRUE(nestedMembers()[i](*shop.session)) << "member " << i;
        }
        EXPECT_EQ(shop.world.serial.written().size(), written);
        EXPECT_EQ(shop.outcome(), before);
        EXPECT_EQ(shop.session->state().s3, rates);
        EXPECT_TRUE(shop.world.dialog.shown.empty());
        EXPECT_NE(shop.world.files.contents[L"C:\\host\\t.log"].find("Rejected"),
                  std::string::npos);
      },
      [&](Shop& shop, const Sale& sale) {
        EXPECT_EQ(failuresIn(sale), 0);
        EXPECT_EQ(shop.line.paper(), undisturbed.line.paper());
      },
      false, tracedSettings());
}

TEST(Robustness, ClosingEndsTheMemberThatWaits) {
  const auto toldClosed = [](Shop& shop, const Sale& sale) {
    EXPECT_TRUE(sale.back().failed);
    EXPECT_EQ(shop.outcome().DescripcionError, L"PUERTO CERRADO");
  };
  for (const bool isSilent : {false, true}) {
    atEachYield(
        "close", [](Shop& shop) { shop.session->Cerrar(); }, toldClosed, isSilent);
    atEachYield(
        "last release", [](Shop& shop) { shop.session->abandon(); }, toldClosed, isSilent);
    atEachYield(
        "reopen and sell",
        [](Shop& shop) {
          shop.line.misbehaviour().reset();
          shop.session->Abrir(7);
          EXPECT_EQ(shop.session->Execute(L"w"), 0) << "a new opening has its own turns";
        },
        [&](Shop&, const Sale& sale) {
          // A silent printer fails the members before as well.
          const bool isOneOrFirst =
              isSilent ? std::ranges::is_partitioned(sale, &Called::failed) : failuresIn(sale) == 1;
          EXPECT_TRUE(isOneOrFirst && !(isSilent && sale.back().failed));
        },
        isSilent);
  }
}

TEST(Robustness, MemberThatIsClosedLeavesNothingOpenAndShowsNothing) {
  Shop closed(tracedSettings());
  openKnown(closed);
  closed.world.pump.whenYielded = [&] { closed.session->Cerrar(); };
  EXPECT_EQ(closed.session->Execute(L"w"), pfCommError);
  EXPECT_EQ(closed.world.files.openFiles, 0);

  Shop released(quickSettings());
  openKnown(released);
  released.world.pump.whenYielded = [&] { released.session->abandon(); };
  EXPECT_EQ(PasarDatosCliente(*released.session, {L"N", L"R", L"A"}, {}), pfCommError);
  EXPECT_TRUE(released.world.dialog.shown.empty());
}

constexpr double kTimeOut = 1;  // seconds, of quickSettings

// A printer that hears nothing holds a host that quits for a request and a block, and no longer.
TEST(Robustness, QuitEndsTheWaitingForASilentPrinter) {
  const auto soon = [](Shop&, const Sale& sale) {
    for (const Called& one : sale) EXPECT_LT(one.seconds, 2 * kTimeOut + 0.2) << one.name;
  };
  const auto quit = [](Shop& shop) {
    shop.world.pump.isQuitting = true;
    shop.line.misbehaviour().set(Fault::Silent, simulator::kForEver);
  };
  for (const bool isSilent : {false, true}) atEachYield("quit", quit, soon, isSilent);
  Shop midnight(quickSettings());
  openKnown(midnight);
  midnight.world.clock.setSeconds(86399.9);
  quit(midnight);
  soon(midnight, sell(midnight));

  Shop shop(quickSettings());
  openKnown(shop);
  shop.world.pump.isQuitting = true;
  EXPECT_EQ(PasarItem(*shop.session, {L"PAN", 1, 1, 16}), 0)
      << "a command at the program's end still counts";
  shop.line.misbehaviour().set(Fault::Lose, 2);  // the status, then the block's ACK
  const std::size_t before = shop.world.serial.written().size();
  EXPECT_EQ(shop.session->Execute(L"w"), pfCommError);
  EXPECT_EQ(shop.world.serial.written().size() - before, 1U);
  EXPECT_EQ(shop.session->Execute(L"w"), pfCommError);
  EXPECT_EQ(shop.world.serial.written().size() - before, 2U) << "the block is not repeated";
}

// By "LimiteEspera"; a member that sends several commands does not wait so long for each.
TEST(Robustness, SilentPrinterHoldsAMemberForItsLimitOnce) {
  Shop shop({{kSessionSection, L"LimiteEspera", L"3"}});
  shop.line.misbehaviour().set(Fault::Silent, simulator::kForEver);
  const double start = shop.world.clock.total();
  shop.session->Abrir(7);  // asks for the status and the serial number
  EXPECT_NEAR(shop.world.clock.total() - start, 3, 0.1);
  EXPECT_EQ(PasarItem(*shop.session, {L"PAN", 1, 1, 16}), pfCommError);
  EXPECT_NEAR(shop.world.clock.total() - start, 6, 0.2);
}

}  // namespace
}  // namespace corvid
