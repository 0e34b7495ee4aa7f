// Text functions with the automation world's rules: positions count from 1, results are copies.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

using Text = std::wstring;
using TextView = std::wstring_view;
using Lines = std::vector<std::wstring>;

// The first or last count characters, or the whole text; a negative count is an error (5).
[[nodiscard]] Text left(TextView text, std::int64_t count);
[[nodiscard]] Text right(TextView text, std::int64_t count);
// From position start on, at most count characters; a start below 1 or a negative count is an
// error (5), a start after the end gives an empty text.
[[nodiscard]] Text mid(TextView text, std::int64_t start);
[[nodiscard]] Text mid(TextView text, std::int64_t start, std::int64_t count);
// The pieces between separators, empty ones included; no piece at all for an empty text. An
// empty separator separates nothing.
[[nodiscard]] Lines split(TextView text, TextView separator);
[[nodiscard]] Text join(const Lines& pieces, TextView separator);
// Left to right; an empty from changes nothing.
[[nodiscard]] Text replaceAll(TextView text, TextView from, TextView to);
// One of "0" to "9".
[[nodiscard]] constexpr bool isDigit(wchar_t character) {
  return character >= L'0' && character <= L'9';
}
// Removes blanks (character 32) at both ends.
[[nodiscard]] Text trim(TextView text);
// Fold the letters of the Western European page (accented ones too), the same under every locale;
// every other character stays.
[[nodiscard]] Text upperCase(TextView text);
[[nodiscard]] Text lowerCase(TextView text);
[[nodiscard]] Text spaces(std::int64_t count);  // error 5 for a negative count
// Compare without case (folded as in lowerCase).
[[nodiscard]] bool equalIgnoringCase(TextView a, TextView b);

}  // namespace corvid
