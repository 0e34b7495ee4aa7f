// Housekeeping of a session without a port, as hosts of either binding see it.
#include "session/printer_session.h"
#include "unit/com/automation_host.h"

namespace corvid::testing {
namespace {

using ClosedSession = AutomationTest;

constexpr auto kMismatch = static_cast<HRESULT>(0x800A000D);
constexpr auto kOverflow = static_cast<HRESULT>(0x800A0006);
constexpr auto kInvalidCall = static_cast<HRESULT>(0x800A0005);

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
