// The shape of a reply's text.
#pragma once

namespace corvid {

inline constexpr wchar_t kLineFeed = L'\n';  // separates the fields of a reply

}  // namespace corvid
