// lmStr2Lines: word wrap for addresses.
#pragma once

#include "basic/text.h"

#include <cstdint>
#include <string_view>

namespace corvid {

// Lines of at most `width` characters, broken at line breaks and after (opening marks: in front
// of) punctuation and at blanks, hard where a line has neither. No lines for an empty text;
// invalid procedure call (5) for a width below 1.
[[nodiscard]] Lines lmStr2Lines(std::wstring_view text, std::int32_t width);

}  // namespace corvid
