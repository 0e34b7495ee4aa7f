// Late-bound calls as scripts make them.
#include "session/printer_session.h"
#include "unit/com/automation_host.h"

namespace corvid::testing {
namespace {

using LateCalls = AutomationTest;

std::wstring valueOf(ICStringBuffer* buffer) { return textIn(callLate(buffer, L"Value").value); }

TEST_F(LateCalls, WriteBackToATypedVariableInItsOwnKind) {
  const auto buffer = newBuffer();
  callLate(buffer.get(), L"Append", {text(L"abcdef").value()});
  SHORT length = 2;
  VARIANT reference = raw(VT_BYREF | VT_I2, &length);
  ASSERT_EQ(S_OK, callLate(buffer.get(), L"Remove", {number(4).value(), reference}).outcome);
  EXPECT_EQ(3, length);

  LONG exact = 5;
  reference = raw(VT_BYREF | VT_I4, &exact);
  ASSERT_EQ(S_OK, callLate(buffer.get(), L"Remove", {number(2).value(), reference}).outcome);
  EXPECT_EQ(2, exact);
  EXPECT_EQ(L"a", valueOf(buffer.get()));

  BSTR inserted = SysAllocString(L"xy");
  reference = raw(VT_BYREF | VT_BSTR, &inserted);
  ASSERT_EQ(S_OK, callLate(buffer.get(), L"Insert", {number(1).value(), reference}).outcome);
  EXPECT_EQ(L"xya", valueOf(buffer.get()));
  EXPECT_STREQ(L"xy", inserted);
  SysFreeString(inserted);

  // What the member leaves alone keeps its decimals.
  callLate(buffer.get(), L"Append", {text(L"bc").value()});
  float unchanged = 1.6F;
  reference = raw(VT_BYREF | VT_R4, &unchanged);
  ASSERT_EQ(S_OK, callLate(buffer.get(), L"Remove", {number(1).value(), reference}).outcome);
  EXPECT_EQ(1.6F, unchanged);
  EXPECT_EQ(L"abc", valueOf(buffer.get()));
}

TEST_F(LateCalls, TakeNamedArgumentsInAnyOrder) {
  const auto session = newSession();
  std::wstring member = L"GetResponseString";
  std::wstring first = L"sep";
  std::wstring second = L"cmd";
  std::array<LPOLESTR, 3> names = {member.data(), first.data(), second.data()};
  std::array<DISPID, 3> ids{};
  ASSERT_EQ(S_OK,
            session->GetIDsOfNames(IID_NULL, names.data(), 3, LOCALE_USER_DEFAULT, ids.data()));
  const Variant separator = text(L"|");
  const Variant command = text(L"S1");
  std::array<VARIANT, 2> values = {separator.value(), command.value()};
  DISPPARAMS arguments{values.data(), &ids[1], 2, 2};
  EXPECT_EQ(L"|pfError",
            textIn(invokeWith(session.get(), ids[0], DISPATCH_METHOD, arguments).value));
}

TEST_F(LateCalls, TakeNullForATextAndADefaultPropertyForItsObject) {
  const auto session = newSession();
  const LateResult escaped = callLate(session.get(), L"EscapeString", {nullValue().value()});
  EXPECT_EQ(S_OK, escaped.outcome);
  EXPECT_EQ(L"", textIn(escaped.value));
  const auto buffer = newBuffer();
  putLate(buffer.get(), L"Value", text(L"\x02").value());
  EXPECT_EQ(
      L"[STX]",
      textIn(callLate(session.get(), L"EscapeString", {objectValue(buffer.get()).value()}).value));
}

// The system alone would ask it for ever.
TEST_F(LateCalls, EndWhereAnObjectIsItsOwnDefaultProperty) {
  HostObject* self = nullptr;
  HostObject ring(
      L"",
      [&](DISPPARAMS&, VARIANT* result) {
        *result = objectValue(self).detach();
        return S_OK;
      },
      DISPID_VALUE);
  self = &ring;
  const auto buffer = newBuffer();
  const Variant value = objectValue(&ring);
  EXPECT_TRUE(FAILED(callLate(buffer.get(), L"Append", {value.value()}).outcome));
  EXPECT_TRUE(FAILED(callLate(buffer.get(), L"Remove", {value.value(), value.value()}).outcome));
  EXPECT_EQ(L"", valueOf(buffer.get()));
}

TEST_F(LateCalls, RefuseWhatDoesNotFit) {
  const auto buffer = newBuffer();
  const Variant words = text(L"no number");
  const LateResult refused = callLate(buffer.get(), L"Remove", {words.value(), number(1).value()});
  EXPECT_EQ(DISP_E_TYPEMISMATCH, refused.outcome);
  EXPECT_EQ(1U, refused.badArgument);  // places count from the last argument
  EXPECT_EQ(DISP_E_OVERFLOW,
            callLate(buffer.get(), L"Remove", {number(1e10).value(), number(1).value()}).outcome);
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, callLate(buffer.get(), L"NoSuchMember").outcome);
  DISPPARAMS none{};
  EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, buffer->Invoke(0, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none,
                                                    nullptr, nullptr, nullptr));
}

TEST_F(LateCalls, GiveAndTakeTheRateRecord) {
  const auto session = newSession();
  const auto record = create<IPrinterResponse3>(__uuidof(::PrinterResponse3));
  record->put_ValorTasa1(16);
  EXPECT_EQ(S_OK, putLate(session.get(), L"s3", objectValue(record.get()).value(),
                          DISPATCH_PROPERTYPUTREF)
                      .outcome);
  const LateResult given = callLate(session.get(), L"s3");
  ASSERT_EQ(VT_DISPATCH, given.value.type());
  EXPECT_EQ(static_cast<IDispatch*>(record.get()), V_DISPATCH(&given.value.value()));

  const auto buffer = newBuffer();
  EXPECT_EQ(DISP_E_TYPEMISMATCH, putLate(session.get(), L"s3", objectValue(buffer.get()).value(),
                                         DISPATCH_PROPERTYPUTREF)
                                     .outcome);
  EXPECT_EQ(S_OK, putLate(session.get(), L"s3", objectValue(nullptr).value()).outcome);
  EXPECT_EQ(nullptr, V_DISPATCH(&callLate(session.get(), L"s3").value.value()));
}

TEST_F(LateCalls, NameTheirClassAndHaveNoEvents) {
  const auto info = newSession().as<IProvideClassInfo2>();
  ASSERT_TRUE(info);
  ComPtr<ITypeInfo> description;
  ASSERT_EQ(S_OK, info->GetClassInfo(description.put()));
  EXPECT_EQ(L"PrinterFiscal", nameOf(*description.get(), MEMBERID_NIL));
  GUID events{};
  EXPECT_EQ(E_FAIL, info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events));
}

}  // namespace
}  // namespace corvid::testing
