#include "com/variant_conversions.h"

#include "basic/conversions.h"
#include "basic/run_time_error.h"

namespace corvid {
namespace {

// An object's default property may be an object again; a ring of them must end.
constexpr int kMostDefaultProperties = 16;
constexpr int kCurrencyDecimals = 4;
constexpr int kDigitsOfASingle = 7;

void check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  if (result == DISP_E_OVERFLOW) throw overflow();
  throw typeMismatch();
}

Variant convert(const VARIANT& value, VARTYPE type, LCID locale = LOCALE_USER_DEFAULT) {
  Variant converted;
  check(changeType(value, type, converted, locale));
  return converted;
}

Variant defaultProperty(IDispatch* object) {
  if (object == nullptr) throw typeMismatch();
  Variant property;
  DISPPARAMS none = {};
  const HRESULT result = object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                        DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none,
                                        property.put(), nullptr, nullptr);
  if (FAILED(result)) throw typeMismatch();
  return property;
}

Variant withoutReference(const VARIANT& value) {
  Variant copy;
  check(copyWithoutReference(value, copy));
  return copy;
}

bool isBlank(const VARIANT& value) { return V_VT(&value) == VT_NULL || V_VT(&value) == VT_EMPTY; }

std::int64_t unsignedToSigned(ULONGLONG value) {
  if (value > static_cast<ULONGLONG>(INT64_MAX)) throw overflow();
  return static_cast<std::int64_t>(value);
}

// The digits of a 96-bit number cannot pass through a 64-bit one: their invariant text does.
Decimal fromPlatformDecimal(const VARIANT& value) {
  Bstr text;
  DECIMAL number = V_DECIMAL(&value);
  check(VarBstrFromDec(&number, LOCALE_INVARIANT, LOCALE_NOUSEROVERRIDE, text.put()));
  const std::optional<Decimal> decimal = Decimal::parse(text.view());
  if (!decimal) throw typeMismatch();
  return *decimal;
}

std::optional<std::int64_t> wholeNumber(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return 0;
    case VT_I1:
      return V_I1(&value);
    case VT_UI1:
      return V_UI1(&value);
    case VT_I2:
      return V_I2(&value);
    case VT_UI2:
      return V_UI2(&value);
    case VT_I4:
    case VT_INT:
      return V_I4(&value);
    case VT_UI4:
    case VT_UINT:
      return V_UI4(&value);
    case VT_I8:
      return V_I8(&value);
    case VT_UI8:
      return unsignedToSigned(V_UI8(&value));
    case VT_BOOL:
      return V_BOOL(&value) == VARIANT_FALSE ? 0 : -1;
    default:
      return std::nullopt;
  }
}

Decimal resolvedToDecimal(const VARIANT& value) {
  if (const auto number = wholeNumber(value)) return Decimal::fromInteger(*number);
  switch (V_VT(&value)) {
    case VT_R4:
      return Decimal::fromDouble(V_R4(&value), kDigitsOfASingle);
    case VT_R8:
      return Decimal::fromDouble(V_R8(&value));
    case VT_DATE:
      return Decimal::fromDouble(V_DATE(&value));
    case VT_CY:
      return Decimal::fromUnscaled(V_CY(&value).int64, kCurrencyDecimals);
    case VT_DECIMAL:
      return fromPlatformDecimal(value);
    case VT_BSTR:
      return fromPlatformDecimal(convert(value, VT_DECIMAL).value());
    default:
      throw typeMismatch();
  }
}

bool isNumber(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
      return true;
    default:
      return false;
  }
}

// Without the exponent that a double's text may have.
std::wstring plainText(const Decimal& number) {
  const std::wstring whole = number.integerDigits();
  const std::wstring fraction = number.fractionDigits();
  return (number.isNegative() ? L"-" : L"") + (whole.empty() ? L"0" : whole) +
         (fraction.empty() ? L"" : L"." + fraction);
}

std::wstring textBy(const VARIANT& value, LCID locale) {
  const Variant resolved = resolve(value);
  if (isBlank(resolved.value())) return {};
  const Variant text = convert(resolved.value(), VT_BSTR, locale);
  return std::wstring(viewOf(V_BSTR(&text.value())));
}

}  // namespace

bool isMissing(const VARIANT& value) {
  const VARIANT* const found = innermost(value);
  return found != nullptr && V_VT(found) == VT_ERROR && V_ERROR(found) == DISP_E_PARAMNOTFOUND;
}

Variant resolve(const VARIANT& value) {
  Variant resolved = withoutReference(value);
  for (int i = 0; resolved.type() == VT_DISPATCH; ++i) {
    if (i == kMostDefaultProperties) throw typeMismatch();
    resolved = withoutReference(defaultProperty(V_DISPATCH(resolved.get())).value());
  }
  return resolved;
}

std::wstring toText(const VARIANT& value) { return textBy(value, LOCALE_USER_DEFAULT); }

std::wstring toFieldText(const VARIANT& value) {
  const Variant resolved = resolve(value);
  return isNumber(resolved.type()) ? plainText(resolvedToDecimal(resolved.value()))
                                   : textBy(resolved.value(), LOCALE_INVARIANT);
}

std::wstring toTextNoNull(const VARIANT& value) {
  const Variant resolved = resolve(value);
  if (resolved.type() == VT_NULL) throw typeMismatch();
  return toText(resolved.value());
}

std::optional<std::wstring> toOptionalText(const VARIANT& value) {
  if (isMissing(value)) return std::nullopt;
  return toText(value);
}

Decimal toDecimal(const VARIANT& value) { return resolvedToDecimal(resolve(value).value()); }

double toDouble(const VARIANT& value) {
  const Variant resolved = resolve(value);
  if (resolved.type() == VT_NULL) throw typeMismatch();
  if (resolved.type() == VT_R4) return toDecimal(resolved.value()).toDouble();
  const Variant number = convert(resolved.value(), VT_R8);
  return requireFinite(V_R8(&number.value()));
}

Currency toCurrency(const VARIANT& value) { return Currency::fromDecimal(toDecimal(value)); }

std::int16_t toInt16(const VARIANT& value) { return toInt16(toDecimal(value)); }

std::int32_t toInt32(const VARIANT& value) { return toInt32(toDecimal(value)); }

bool toBoolean(const VARIANT& value) {
  const Variant resolved = resolve(value);
  if (resolved.type() == VT_NULL) throw typeMismatch();
  const Variant boolean = convert(resolved.value(), VT_BOOL);
  return V_BOOL(&boolean.value()) != VARIANT_FALSE;
}

Date toDate(const VARIANT& value) {
  const std::optional<Date> date = toDateOrBlank(value);
  if (!date) throw typeMismatch();
  return *date;
}

std::optional<Date> toDateOrBlank(const VARIANT& value) {
  const Variant resolved = resolve(value);
  if (isBlank(resolved.value())) return std::nullopt;
  if (resolved.type() == VT_BSTR && viewOf(V_BSTR(&resolved.value())).empty()) return std::nullopt;
  const Variant date = convert(resolved.value(), VT_DATE);
  const double days = requireFinite(V_DATE(&date.value()));
  SYSTEMTIME parts;
  if (VariantTimeToSystemTime(days, &parts) == FALSE) throw overflow();
  return Date{days};
}

}  // namespace corvid
