// The host's values as the parameters of the core's functions.
#pragma once

#include "basic/conversions.h"
#include "basic/run_time_error.h"
#include "com/bstr.h"
#include "com/host_arrays.h"
#include "com/platform.h"
#include "com/variant_conversions.h"

#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace corvid {

// Throws E_POINTER for a place that the host did not give.
inline void requirePlace(const void* place) {
  if (place == nullptr) throw RunTimeError(E_POINTER, {}, L"Invalid pointer");
}

// What the host's reference refers to; throws E_POINTER for none.
template <class Value>
[[nodiscard]] Value& dereferenced(Value* place) {
  requirePlace(place);
  return *place;
}

// Names the type that a value is wanted as.
template <class Type>
struct As {};

// Each throws what the conversion that it names throws.
inline std::wstring convert(As<std::wstring>, const VARIANT& value) { return toText(value); }
inline std::wstring convert(As<std::wstring>, BSTR value) { return std::wstring(viewOf(value)); }
inline std::wstring_view convert(As<std::wstring_view>, BSTR value) { return viewOf(value); }
inline std::optional<std::wstring> convert(As<std::optional<std::wstring>>, const VARIANT& value) {
  return toOptionalText(value);
}
inline Decimal convert(As<Decimal>, const VARIANT& value) { return toDecimal(value); }
inline Currency convert(As<Currency>, const VARIANT& value) { return toCurrency(value); }
inline std::optional<Currency> convert(As<std::optional<Currency>>, const VARIANT& value) {
  return isMissing(value) ? std::nullopt : std::optional(toCurrency(value));
}
inline double convert(As<double>, const VARIANT& value) { return toDouble(value); }
inline double convert(As<double>, double value) { return requireFinite(value); }
inline std::int16_t convert(As<std::int16_t>, const VARIANT& value) { return toInt16(value); }
inline std::int16_t convert(As<std::int16_t>, short value) { return value; }
inline std::int32_t convert(As<std::int32_t>, const VARIANT& value) { return toInt32(value); }
inline std::int32_t convert(As<std::int32_t>, LONG value) { return value; }
inline bool convert(As<bool>, const VARIANT& value) { return toBoolean(value); }
inline bool convert(As<bool>, VARIANT_BOOL value) { return value != VARIANT_FALSE; }
inline Date convert(As<Date>, const VARIANT& value) { return toDate(value); }
inline std::optional<Date> convert(As<std::optional<Date>>, const VARIANT& value) {
  return toDateOrBlank(value);
}
inline HostArray convert(As<HostArray>, const VARIANT& value) { return HostArray(value); }
// Parameters that come by reference.
template <class Type, class Value>
requires(!std::is_same_v<Value*, BSTR>) auto convert(As<Type> as, Value* place) {
  return convert(as, dereferenced(place));
}

// What holds an argument while the function runs.
template <class Parameter>
using ArgumentOf = std::conditional_t<std::is_same_v<Parameter, const FieldArray&>, HostArray,
                                      std::remove_cvref_t<Parameter>>;

// The braces keep the order: the first argument that does not convert is the one that is told.
template <class... Parameters, class... Given>
[[nodiscard]] auto convertInOrder(const Given&... given) {
  static_assert(sizeof...(Parameters) == sizeof...(Given), "one value for each parameter");
  return std::tuple<ArgumentOf<Parameters>...>{convert(As<ArgumentOf<Parameters>>{}, given)...};
}

template <class Result, class Subject, class... Parameters, class... Given>
Result callWith(Result (*function)(Subject&, Parameters...), Subject& subject,
                const Given&... given) {
  const auto arguments = convertInOrder<Parameters...>(given...);
  return std::apply([&](const auto&... each) { return function(subject, each...); }, arguments);
}

template <class Result, class Class, class Subject, class... Parameters, class... Given>
Result callWith(Result (Class::*member)(Parameters...), Subject& subject, const Given&... given) {
  const auto arguments = convertInOrder<Parameters...>(given...);
  return std::apply([&](const auto&... each) { return (subject.*member)(each...); }, arguments);
}

template <class Result, class Class, class Subject, class... Parameters, class... Given>
Result callWith(Result (Class::*member)(Parameters...) const, Subject& subject,
                const Given&... given) {
  const auto arguments = convertInOrder<Parameters...>(given...);
  return std::apply([&](const auto&... each) { return (subject.*member)(each...); }, arguments);
}

}  // namespace corvid
