// Queries and housekeeping of a session without a port, as hosts of either binding see them.
#include "session/printer_session.h"
#include "unit/com/automation_host.h"

namespace corvid::testing {
namespace {

using ClosedSession = AutomationTest;

constexpr auto kMismatch = static_cast<HRESULT>(0x800A000D);
constexpr auto kOverflow = static_cast<HRESULT>(0x800A0006);
constexpr auto kInvalidCall = static_cast<HRESULT>(0x800A0005);

TEST_F(ClosedSession, AnswersQueriesWithSubstitutes) {
  const auto session = newSession();
  LONG number = 0;
  EXPECT_EQ(S_OK, session->numeroUltimaFactura(&number));
  EXPECT_EQ(-1, number);
  EXPECT_EQ(S_OK, session->NumeroUltimoCierre(&number));
  EXPECT_EQ(-1, number);

  ComPtr<IPrinterResponse2> document;
  ASSERT_EQ(S_OK, session->StatusS2(document.put()));
  short code = 0;
  document->get_tipoTrans(&code);
  EXPECT_EQ(-1, code);
  ComPtr<IPrinterResponse4> payments;
  ASSERT_EQ(S_OK, session->Response4(payments.put()));
  VARIANT_BOOL isFake = VARIANT_FALSE;
  payments->get_isFake(&isFake);
  EXPECT_EQ(VARIANT_TRUE, isFake);
  ComPtr<IEstadoDocumento> state;
  ASSERT_EQ(S_OK, session->getEstadoDocumento(state.put()));
  EXPECT_TRUE(state);
}

TEST_F(ClosedSession, HasNoClosures) {
  const auto session = newSession();
  ComPtr<IResumenZ> summary(create<IResumenZ>(__uuidof(::ResumenZ)));
  EXPECT_EQ(S_OK, session->CerrarZ(summary.put()));
  EXPECT_FALSE(summary);
  EXPECT_EQ(S_OK, session->ResumenZ(summary.put()));
  EXPECT_TRUE(summary);

  Variant first = Variant::ofInt16(5);
  Variant last = text(L"12");
  const LateResult found =
      callLate(session.get(), L"reportesZMF", {variable(first), variable(last)});
  ASSERT_EQ(VT_DISPATCH, found.value.type());
  const LateResult count = callLate(V_DISPATCH(&found.value.value()), L"Count");
  EXPECT_EQ(VT_I4, count.value.type());
  EXPECT_EQ(0, V_I4(&count.value.value()));
  const LateResult one = callLate(session.get(), L"loadReporteZMF", {variable(first)});
  EXPECT_EQ(VT_DISPATCH, one.value.type());
  EXPECT_EQ(nullptr, V_DISPATCH(&one.value.value()));
  EXPECT_EQ(VT_BSTR, last.type());
}

TEST_F(ClosedSession, ReadsARateIndexAsANumber) {
  const auto session = newSession();
  double rate = 9;
  EXPECT_EQ(S_OK, session->tasa(text(L"1").value(), &rate));
  EXPECT_EQ(-1, rate);
  EXPECT_EQ(S_OK, session->tasa(Variant::ofInt16(4).value(), &rate));
  EXPECT_EQ(0, rate);
  EXPECT_EQ(kMismatch, session->tasa(text(L"uno").value(), &rate));
}

TEST_F(ClosedSession, GivesHousekeepingItsKindsOfResult) {
  const auto session = newSession();
  const Variant one = Variant::ofInt16(1);
  const LateResult flag = callLate(session.get(), L"setFlag", {one.value(), one.value()});
  EXPECT_EQ(VT_I2, flag.value.type());
  EXPECT_EQ(pfCommError, V_I2(&flag.value.value()));
  Variant early;
  EXPECT_EQ(S_OK, session->setFlag(one.value(), one.value(), early.put()));
  EXPECT_EQ(VT_I2, early.type());
  const LateResult again = callLate(session.get(), L"reimprimirFactura", {one.value()});
  EXPECT_EQ(S_OK, again.outcome);
  EXPECT_EQ(VT_EMPTY, again.value.type());
}

// What cannot be converted throws, and what a member does not need is not converted.
TEST_F(ClosedSession, ConvertsWhatHousekeepingNeeds) {
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
  EXPECT_EQ(kInvalidCall, raised(L"SetFooter", {number(200).value(), words.value()}));
  EXPECT_EQ(kOverflow, raised(L"SetFooter", {number(1e10).value(), words.value()}));
  EXPECT_EQ(S_OK, raised(L"SetDate", {date.value()}));
  EXPECT_EQ(kMismatch, raised(L"SetDate", {words.value()}));
  EXPECT_EQ(kMismatch, raised(L"SetTime", {blank.value()}));
  EXPECT_EQ(kMismatch, raised(L"Login", {words.value()}));
  EXPECT_EQ(kMismatch, raised(L"setFlag", {one.value(), words.value()}));
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
