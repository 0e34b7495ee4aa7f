// The one formatter of the library: numbers and dates by pattern.
#pragma once

#include "basic/currency.h"
#include "basic/date.h"
#include "basic/decimal.h"
#include "basic/locale.h"

#include <string>
#include <string_view>

namespace corvid {

// Renders a number by a pattern of "0" (a digit, zero-filled), "#" (a digit if significant), ","
// (thousands grouping, anywhere before the point) and "." (the locale's decimal separator).
// Rounds half away from zero on the decimal value to the pattern's decimals; digits before
// the point are never cut; a minus stands before the padded digits, and never before zero.
// A point in the pattern always shows. "Currency" is the locale's money form, digits grouped by
// three. Infinities and what is not a number throw overflow (6). The locale defaults to the
// invariant one.
[[nodiscard]] std::wstring format(const Decimal& value, std::wstring_view pattern,
                                  const Locale& locale = {});
[[nodiscard]] std::wstring format(Currency value, std::wstring_view pattern,
                                  const Locale& locale = {});
[[nodiscard]] std::wstring format(double value, std::wstring_view pattern,
                                  const Locale& locale = {});
// An overload for every integer that fits 64 bits.
[[nodiscard]] std::wstring formatInteger(long long value, std::wstring_view pattern,
                                         const Locale& locale = {});

// Renders a date by "dd", "mm" (the month; minutes right after hours), "nn" (minutes), "yy",
// "yyyy", "hh", "h", "ss" (24 hours); every other character stands for itself. Dates outside the
// years 100 to 9999 throw error 5, here and below.
[[nodiscard]] std::wstring format(Date value, std::wstring_view pattern);

// Int(value x 10^decimals + 0.5) with at least that many digits: zero-padded, never cut, a minus
// before the padded digits. Both counts are 0 and up.
[[nodiscard]] std::wstring formatFixedPoint(const Decimal& value, int digits, int decimals);

// The default text form, as when a value is joined to a text: at most 15 (double) or 7 (single)
// significant digits, the locale's decimal separator, exponent form (1E+15, 1.5E-05) from 1E+15 up
// (a single: from 1E+07) and below 0.0001. Throws overflow (6) for infinities and what is not a
// number.
[[nodiscard]] std::wstring toText(double value, const Locale& locale);
[[nodiscard]] std::wstring toText(float value, const Locale& locale);
[[nodiscard]] std::wstring toText(Currency value, const Locale& locale);
// The date, the time, or both, by the locale's short patterns; midnight shows no time and the zero
// date no date (the zero date at midnight shows the time).
[[nodiscard]] std::wstring toText(Date value, const Locale& locale);
// "True" or "False" in every locale.
[[nodiscard]] std::wstring toText(bool value);
// Upper-case digits, no prefix, no padding; negative numbers as 32-bit two's complement.
[[nodiscard]] std::wstring toHex(std::int32_t value);

}  // namespace corvid
