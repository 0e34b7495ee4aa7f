#include "basic/text_lines.h"

#include "basic/text.h"

namespace corvid {

std::wstring PadRightCut(std::wstring_view text, std::int32_t width) {
  return left(std::wstring(text) + spaces(width), width);
}

std::wstring CenterCut(std::wstring_view text, std::int32_t width) {
  const auto length = static_cast<std::int64_t>(text.size());
  if (length >= width) return left(text, width);
  return spaces((width - length) / 2) + std::wstring(text);
}

}  // namespace corvid
