// Looking for a text from the caret back.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvid {

// The offset of the last match that ends at an offset or before it, else of the last one in the
// whole text; folded as in lowerCase. An empty text is never found.
[[nodiscard]] std::optional<std::int32_t> findBackward(std::wstring_view text,
                                                       std::wstring_view wanted, std::int32_t end);

}  // namespace corvid
