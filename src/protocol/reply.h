// The shape of a reply's text.
#pragma once

#include "basic/text.h"

#include <string_view>

namespace corvid {

inline constexpr wchar_t kLineFeed = L'\n';  // separates the fields of a reply

// The fields of a reply's text; none of an empty one.
[[nodiscard]] inline Lines fieldsOf(std::wstring_view text) {
  return split(text, std::wstring_view(&kLineFeed, 1));
}

}  // namespace corvid
