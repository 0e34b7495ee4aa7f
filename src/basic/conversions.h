// Conversions between the kinds of value, with the automation world's rounding and errors.
#pragma once

#include "basic/currency.h"
#include "basic/decimal.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvid {

// Rounding half to even; overflow (6) outside the type.
[[nodiscard]] std::int16_t toInt16(const Decimal& value);
[[nodiscard]] std::int32_t toInt32(const Decimal& value);
[[nodiscard]] std::int16_t toInt16(double value);
[[nodiscard]] std::int32_t toInt32(double value);
[[nodiscard]] std::int16_t narrowToInt16(std::int64_t value);
[[nodiscard]] std::int32_t narrowToInt32(std::int64_t value);

// The value itself; overflow (6) for infinities and what is no number, which are found without a
// comparison: hosts in some languages leave the processor's traps on.
[[nodiscard]] double requireFinite(double value);

// Reads a number of the printer's, the same under every locale: blanks around it, a sign before or
// after it, "." as decimal separator, no grouping. Type mismatch (13) for anything else.
[[nodiscard]] Decimal parsePrinterNumber(std::wstring_view text);

// The number that a text begins with: blanks, tabs and line feeds are passed over wherever they
// stand, then an optional sign, digits with at most one ".", and an optional exponent (E or D).
// "&H" and "&O" introduce hexadecimal and octal digits, of a 16-bit integer where they fit one,
// else of a 32-bit one: "&HFFFF" is -1. Nothing when no digit leads, or when the value fits no
// double or not 32 bits.
[[nodiscard]] std::optional<double> leadingNumber(std::wstring_view text);
// The same number, 0 when no digit leads; overflow (6) when the value does not fit.
[[nodiscard]] double leadingNumberOrZero(std::wstring_view text);

// "True", "False" (any case) or a number as the printer writes it, of which only zero is False;
// blanks around are passed over. Type mismatch (13) for anything else, an empty text too.
[[nodiscard]] bool toBoolean(std::wstring_view text);

}  // namespace corvid
