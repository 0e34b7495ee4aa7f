// Typed values of the interfaces, to and from the core's.
#pragma once

#include "basic/currency.h"
#include "basic/date.h"
#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/platform.h"
#include "com/variant.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace corvid {

[[nodiscard]] inline VARIANT_BOOL toHost(bool value) noexcept {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}
[[nodiscard]] inline CURRENCY toHost(Currency value) noexcept {
  CURRENCY currency;
  currency.int64 = value.units();
  return currency;
}
[[nodiscard]] inline DATE toHost(Date value) noexcept { return value.days; }
[[nodiscard]] inline double toHost(double value) noexcept { return value; }
[[nodiscard]] inline LONG toHost(HWND window) noexcept { return HandleToLong(window); }
[[nodiscard]] inline std::int16_t toHost(std::int16_t value) noexcept { return value; }
[[nodiscard]] inline std::int32_t toHost(std::int32_t value) noexcept { return value; }
[[nodiscard]] inline BSTR toHost(std::wstring_view value) { return Bstr(value).detach(); }
[[nodiscard]] inline BSTR toHost(const std::wstring& value) { return Bstr(value).detach(); }
[[nodiscard]] inline VARIANT toHost(Variant value) noexcept { return value.detach(); }
// An object, or Nothing.
template <class Object>
[[nodiscard]] Object* toHost(ComPtr<Object> object) noexcept {
  return object.detach();
}

inline void fromHost(BSTR value, std::wstring& field) { field = viewOf(value); }
inline void fromHost(VARIANT_BOOL value, bool& field) noexcept { field = value != VARIANT_FALSE; }
inline void fromHost(CURRENCY value, Currency& field) noexcept {
  field = Currency::fromUnits(value.int64);
}
inline void fromHost(DATE value, Date& field) noexcept { field.days = value; }
inline void fromHost(double value, double& field) noexcept { field = value; }
inline void fromHost(short value, std::int16_t& field) noexcept { field = value; }
// Long, and every enumeration of the interfaces.
template <class Number>
requires(std::is_enum_v<Number> ||
         std::is_same_v<Number, LONG>) void fromHost(Number value, std::int32_t& field) noexcept {
  field = static_cast<std::int32_t>(value);
}

}  // namespace corvid
