// The line of a report that its user clicked.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvid {

struct ClickedLine {
  std::wstring line;
  std::int32_t column = 0;  // of the caret: characters of the line to its left

  bool operator==(const ClickedLine&) const = default;
};

// The run of characters without control characters around a caret offset in the text (CR LF as two
// characters). The last character of the text belongs to no line: lines end before a line
// break or there. Nothing where a control character stands left of the caret and ends the line at
// once.
[[nodiscard]] std::optional<ClickedLine> clickedLine(std::wstring_view text, std::int32_t caret);

}  // namespace corvid
