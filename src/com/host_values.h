// Typed values of the interfaces, to and from the core's.
#pragma once

#include "basic/conversions.h"
#include "basic/currency.h"
#include "basic/date.h"
#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/host_arrays.h"
#include "com/platform.h"
#include "com/variant.h"
#include "com/variant_conversions.h"

#include <cstdint>
#include <memory>
#include <string>
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
[[nodiscard]] inline BSTR toHost(const std::wstring& value) { return Bstr(value).detach(); }
// An object, or Nothing.
template <class Object>
[[nodiscard]] Object* toHost(ComPtr<Object> object) noexcept {
  return object.detach();
}

// As a Variant of the kind that hosts of the published interface know: Integer, Long, String, an
// array.
[[nodiscard]] inline Variant toVariant(std::int16_t value) { return Variant::ofInt16(value); }
[[nodiscard]] inline Variant toVariant(std::int32_t value) { return Variant::ofInt32(value); }
[[nodiscard]] inline Variant toVariant(const std::wstring& value) { return Variant(Bstr(value)); }
[[nodiscard]] inline Variant toVariant(const Lines& fields) { return toHostArray(fields); }
[[nodiscard]] inline Variant toVariant(const std::vector<Lines>& rows) { return toHostArray(rows); }
[[nodiscard]] inline Variant toVariant(Variant value) { return value; }

// The object through which a host sees a record; each kind of record names its own.
template <class Record>
struct ObjectFor;

// Into a cleared place of the host's.
template <class Out, class Value>
void giveToHost(Out& place, Value&& value) {
  place = static_cast<Out>(toHost(std::forward<Value>(value)));
}
template <class Value>
void giveToHost(VARIANT& place, Value&& value) {
  place = toVariant(std::forward<Value>(value)).detach();
}
// Nothing, where there is no record.
template <class Interface, class Record>
void giveToHost(Interface*& place, std::shared_ptr<Record> record) {
  if (record) place = new typename ObjectFor<Record>::Type(std::move(record));
}

inline void fromHost(BSTR value, std::wstring& field) { field = viewOf(value); }
inline void fromHost(VARIANT_BOOL value, bool& field) noexcept { field = value != VARIANT_FALSE; }
inline void fromHost(CURRENCY value, Currency& field) noexcept {
  field = Currency::fromUnits(value.int64);
}
// Overflow (6) for infinities and what is no number.
inline void fromHost(DATE value, Date& field) { field.days = requireFinite(value); }
inline void fromHost(double value, double& field) { field = requireFinite(value); }
inline void fromHost(short value, std::int16_t& field) noexcept { field = value; }
// Long, and every enumeration of the interfaces.
template <class Number>
requires(std::is_enum_v<Number> ||
         std::is_same_v<Number, LONG>) void fromHost(Number value, std::int32_t& field) noexcept {
  field = static_cast<std::int32_t>(value);
}

}  // namespace corvid
