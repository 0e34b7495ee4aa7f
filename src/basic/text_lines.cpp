#include "basic/text_lines.h"

#include "basic/text.h"

#include <algorithm>

namespace corvid {

std::wstring PadRightCut(std::wstring_view text, std::int32_t width) {
  return left(std::wstring(text) + spaces(width), width);
}

std::wstring CenterCut(std::wstring_view text, std::int32_t width) {
  const auto length = static_cast<std::int64_t>(text.size());
  const std::int64_t room = std::max<std::int64_t>(width - length, 0);
  return left(spaces(room / 2) + std::wstring(text), width);
}

}  // namespace corvid
