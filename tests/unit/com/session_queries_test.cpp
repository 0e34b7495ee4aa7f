// Housekeeping, as hosts of either binding see it.
#include "com/printer_fiscal_object.h"
#include "support/session_bench.h"
#include "unit/com/automation_host.h"

namespace corvid::testing {
namespace {

using Housekeeping = AutomationTest;

constexpr auto kMismatch = static_cast<HRESULT>(0x800A000D);

TEST_F(Housekeeping, GivesItsKindsOfResultAndPassesArgumentsInTheirOrder) {
  SessionBench bench;
  bench.open();
  const auto object = makeObject<PrinterFiscalObject>(
      std::shared_ptr<PrinterSession>(&bench.session(), [](PrinterSession*) {}));
  PrinterFiscalObject::Published* const session = object.get();
  const Variant seven = Variant::ofInt16(7);
  const Variant nine = Variant::ofInt16(9);
  EXPECT_EQ(VT_I2, callLate(session, L"setFlag", {seven.value(), nine.value()}).value.type());
  Variant early;
  EXPECT_EQ(S_OK, session->setFlag(nine.value(), seven.value(), early.put()));
  EXPECT_EQ(VT_I2, early.type());
  EXPECT_EQ(VT_EMPTY, callLate(session, L"reimprimirFactura", {seven.value()}).value.type());
  callLate(session, L"reimprimirDocumentos", {text(L"F").value(), seven.value(), nine.value()});
  callLate(session, L"ReporteDiario", {text(L"0").value(), text(L"Z").value()});
  EXPECT_EQ(bench.printer().commands(),
            (std::vector<std::string>{"PJ0709", "PJ0907", "RF00000070000007", "RF00000070000009",
                                      "I0Z"}));
}

// Whoever waits for a silent printer is not kept waiting by a host that has let go.
TEST_F(Housekeeping, LastReferenceReleasedInAMemberEndsItsWaiting) {
  SessionBench bench({{L"TimeOut", L"1"}, {L"LimiteEspera", L"3"}});
  bench.open();
  PrinterFiscalObject* const object =
      makeObject<PrinterFiscalObject>(
          std::shared_ptr<PrinterSession>(&bench.session(), [](PrinterSession*) {}))
          .detach();
  bench.world().serial.connect(nullptr);
  bench.atYield(1, [&] { EXPECT_EQ(0U, object->Release()); });
  short failed = 0;
  EXPECT_EQ(S_OK, object->Execute(Bstr(L"w").get(), &failed));
  EXPECT_EQ(1, failed);
  EXPECT_EQ(L"PUERTO CERRADO", bench.outcome().DescripcionError);
}

// What cannot be converted throws, and what a member does not need is not converted.
TEST_F(Housekeeping, ConvertsWhatItNeeds) {
  const auto session = newSession();
  const Variant words = text(L"abc");
  const Variant one = Variant::ofInt16(1);
  const Variant blank;
  const Variant date = text(L"2024-10-31");
  const auto raised = [&](const wchar_t* member, std::vector<VARIANT> arguments) {
    return callLate(session.get(), member, std::move(arguments)).raised;
  };
  EXPECT_EQ(S_OK, raised(L"PrintNoFiscal", {blank.value(), one.value()}));
  EXPECT_EQ(kMismatch, raised(L"PrintNoFiscal", {words.value(), words.value()}));
  EXPECT_EQ(S_OK, raised(L"SetHeader", {words.value(), words.value()}));
  EXPECT_EQ(kMismatch, raised(L"SetFooter", {words.value(), words.value()}));
  EXPECT_EQ(kMismatch, raised(L"SetTime", {blank.value()}));
  const Variant numbers = text(L"F");
  const Variant dates = text(L"f");
  EXPECT_EQ(kMismatch,
            raised(L"reimprimirDocumentos", {numbers.value(), one.value(), date.value()}));
  EXPECT_EQ(S_OK, raised(L"reimprimirDocumentos", {dates.value(), date.value(), date.value()}));
  EXPECT_EQ(kMismatch,
            raised(L"reimprimirDocumentos", {dates.value(), date.value(), words.value()}));
}

}  // namespace
}  // namespace corvid::testing
