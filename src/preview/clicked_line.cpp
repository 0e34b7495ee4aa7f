#include "preview/clicked_line.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr wchar_t kFirstPrintable = 32;

// Positions count characters from 1; position 0 stands before the text.
bool isControl(std::wstring_view text, std::size_t position) {
  return text[position - 1] < kFirstPrintable;
}

std::size_t leftEnd(std::wstring_view text, std::size_t caret) {
  std::size_t position = caret;
  while (position > 0 && !isControl(text, position)) --position;
  return position;
}

std::size_t rightEnd(std::wstring_view text, std::size_t caret) {
  std::size_t position = std::max<std::size_t>(caret, 1);
  while (position < text.size() && !isControl(text, position)) ++position;
  return position;
}

}  // namespace

std::optional<ClickedLine> clickedLine(std::wstring_view text, std::int32_t caret) {
  const auto offset = std::min(static_cast<std::size_t>(std::max(caret, 0)), text.size());
  const std::size_t before = leftEnd(text, offset);
  const std::size_t after = rightEnd(text, offset);
  if (after == before) return std::nullopt;
  return ClickedLine{std::wstring(text.substr(before, after - before - 1)),
                     static_cast<std::int32_t>(offset - before)};
}

}  // namespace corvid
