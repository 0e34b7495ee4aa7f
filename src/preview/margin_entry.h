// What may stand in the margin entry, and what it means.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// Whether a value is made of digits, "," and ".", after one "-" at most in front. An empty value
// is accepted as it stands; blanks at both ends are removed from the caller's value.
[[nodiscard]] bool IsValidNumber(std::wstring& value);

// The whole part, toward minus infinity, of the number that the entry begins with, as a text
// without grouping; "0" where there is none, or none that fits a double.
[[nodiscard]] std::wstring wholePart(std::wstring_view entry);

// The number that the entry begins with as a margin, rounded half to even; 0 where it is negative,
// missing or beyond 16 bits.
[[nodiscard]] std::int16_t marginOf(std::wstring_view entry);

// The entry after steps up or down from its whole part: 0 to 32767, without grouping.
[[nodiscard]] std::wstring steppedMargin(std::wstring_view entry, int steps);

}  // namespace corvid
