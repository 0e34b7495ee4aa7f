// The host's values, converted for the core.
//
// Every function looks through references and takes an object's default property. Texts are read by
// the user's locale; numbers convert with the core's rounding. What cannot be converted throws type
// mismatch (13), what does not fit, infinities and what is no number overflow (6).
#pragma once

#include "basic/currency.h"
#include "basic/date.h"
#include "basic/decimal.h"
#include "com/platform.h"
#include "com/variant.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvid {

// True for an optional argument that the call does not carry.
[[nodiscard]] bool isMissing(const VARIANT& value);

// A copy without references, and with an object's default property in place of the object.
[[nodiscard]] Variant resolve(const VARIANT& value);

// Null and Empty are an empty text.
[[nodiscard]] std::wstring toText(const VARIANT& value);
// As toText, but Null is a type mismatch.
[[nodiscard]] std::wstring toTextNoNull(const VARIANT& value);
// As toText, but numbers as the printer writes them, with a point under every locale.
[[nodiscard]] std::wstring toFieldText(const VARIANT& value);
// Nothing for a missing argument.
[[nodiscard]] std::optional<std::wstring> toOptionalText(const VARIANT& value);

// Empty is zero.
[[nodiscard]] Decimal toDecimal(const VARIANT& value);
[[nodiscard]] double toDouble(const VARIANT& value);       // a single by the 7 digits it is sure of
[[nodiscard]] Currency toCurrency(const VARIANT& value);   // half to even at the fourth decimal
[[nodiscard]] std::int16_t toInt16(const VARIANT& value);  // half to even
[[nodiscard]] std::int32_t toInt32(const VARIANT& value);  // half to even
[[nodiscard]] bool toBoolean(const VARIANT& value);

// A blank value (Null, Empty, an empty text) is no date.
[[nodiscard]] Date toDate(const VARIANT& value);
// Nothing for a blank value.
[[nodiscard]] std::optional<Date> toDateOrBlank(const VARIANT& value);

}  // namespace corvid
