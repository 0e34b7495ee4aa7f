// The records as hosts use them: properties, arrays of fields, and the session that they read from.
#include "com/host_arrays.h"
#include "unit/com/automation_host.h"

namespace corvid::testing {
namespace {

using RecordObjects = AutomationTest;

constexpr auto kMismatch = static_cast<HRESULT>(0x800A000D);

const IID kRecords[] = {__uuidof(::PrinterResponse1), __uuidof(::PrinterResponse2),
                        __uuidof(::EstadoDocumento),  __uuidof(::PrinterResponse3),
                        __uuidof(::PrinterResponse4), __uuidof(::ResumenZ),
                        __uuidof(::ReporteZMF)};

std::vector<DISPID> writableProperties(IDispatch* object) {
  std::vector<DISPID> properties;
  forEachMember(object, [&](const FUNCDESC& member, const std::wstring&) {
    if (member.invkind == INVOKE_PROPERTYPUT) properties.push_back(member.memid);
  });
  return properties;
}

void put(IDispatch* object, DISPID property, const VARIANT& value) {
  VARIANT argument = value;
  DISPID isPut = DISPID_PROPERTYPUT;
  DISPPARAMS arguments{&argument, &isPut, 1, 1};
  EXPECT_EQ(S_OK, invokeWith(object, property, DISPATCH_PROPERTYPUT, arguments).outcome);
}

Variant get(IDispatch* object, DISPID property) {
  DISPPARAMS none{};
  return std::move(invokeWith(object, property, DISPATCH_PROPERTYGET, none).value);
}

// A property wired to its neighbour's value is found, whatever the record: no two values are alike,
// but that Booleans are all True, one at a time.
TEST_F(RecordObjects, KeepEveryPropertyByItself) {
  for (const IID& id : kRecords) {
    const auto object = create<IDispatch>(id);
    const std::vector<DISPID> properties = writableProperties(object.get());
    EXPECT_FALSE(properties.empty());
    for (const DISPID property : properties) put(object.get(), property, number(property).value());
    for (const DISPID property : properties) {
      Variant found = get(object.get(), property);
      if (found.type() == VT_BOOL) {
        EXPECT_EQ(VARIANT_TRUE, V_BOOL(&found.value())) << property;
        put(object.get(), property, boolean(false).value());
        continue;
      }
      Variant asNumber;
      ASSERT_EQ(S_OK, changeType(found.value(), VT_R8, asNumber)) << property;
      EXPECT_EQ(property, V_R8(&asNumber.value()));
    }
  }
}

TEST_F(RecordObjects, TakeArraysInEveryWayThatHostsPassThem) {
  Variant fields = toHostArray(Lines{L"S2 0001500", L"240", L"", L"2", L"1740", L"1", L"3"});
  VARIANT typed = raw(VT_BYREF | VT_ARRAY | VT_VARIANT, &V_ARRAY(fields.get()));
  const VARIANT nested = raw(VT_BYREF | VT_VARIANT, &typed);
  const struct {
    VARIANT argument;
    const char* way;
  } cases[] = {{fields.value(), "an array"},
               {variable(fields), "a script's variable"},
               {typed, "an array variable"},
               {nested, "a variable that refers to an array variable"}};
  for (const auto& one : cases) {
    const auto record = create<IPrinterResponse2>(__uuidof(::PrinterResponse2));
    EXPECT_EQ(S_OK, callLate(record.get(), L"loadFromResponse", {one.argument}).outcome) << one.way;
    CURRENCY total{};
    record->get_total(&total);
    EXPECT_EQ(174000, total.int64) << one.way;
  }
  EXPECT_EQ(VT_ARRAY | VT_VARIANT, fields.type());
}

TEST_F(RecordObjects, ReadFromASessionAlone) {
  const auto session = newSession();
  const auto buffer = newBuffer();
  const auto summary = create<IResumenZ>(__uuidof(::ResumenZ));
  const auto closure = create<IReporteZMF>(__uuidof(::ReporteZMF));
  // As an early-bound host may do it, whose compiler believed a cast.
  auto* other = reinterpret_cast<IPrinterFiscal*>(buffer.get());
  Variant seven = Variant::ofInt16(7);
  VARIANT_BOOL loaded = VARIANT_TRUE;
  EXPECT_EQ(kMismatch, summary->load(other));
  EXPECT_EQ(kMismatch, summary->Refresh(nullptr));
  EXPECT_EQ(kMismatch, closure->load(other, seven.get(), &loaded));
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            callLate(summary.get(), L"load", {objectValue(buffer.get()).value()}).outcome);

  EXPECT_EQ(S_OK, callLate(summary.get(), L"load", {objectValue(session.get()).value()}).outcome);
  short number = 0;
  summary->get_numeroUltimoZ(&number);
  EXPECT_EQ(-1, number);
  const LateResult late =
      callLate(closure.get(), L"load", {objectValue(session.get()).value(), variable(seven)});
  EXPECT_EQ(VT_BOOL, late.value.type());
  EXPECT_EQ(VARIANT_FALSE, V_BOOL(&late.value.value()));
  EXPECT_EQ(VT_I2, seven.type());
}

}  // namespace
}  // namespace corvid::testing
