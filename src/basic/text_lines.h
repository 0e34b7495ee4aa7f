// Fixed-width text lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// Padded with blanks on the right, or cut, to exactly `width` characters.
[[nodiscard]] std::wstring PadRightCut(std::wstring_view text, std::int32_t width);
// A shorter text gets (width - length) \ 2 blanks before it and none after it; others are cut.
[[nodiscard]] std::wstring CenterCut(std::wstring_view text, std::int32_t width);

}  // namespace corvid
