#include "preview/clicked_line.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace corvid {
namespace {

TEST(ClickedLine, LineAndColumnAroundTheCaret) {
  const struct {
    const wchar_t* text;
    std::int32_t caret;
    std::optional<ClickedLine> clicked;
    const char* reason;
  } kCases[] = {
      {L"ab cd \r\nef \r\n", 4, ClickedLine{L"ab cd ", 4}, "inside the first line, blanks and all"},
      {L"ab cd \r\nef \r\n", 0, ClickedLine{L"ab cd ", 0}, "in front of the text"},
      {L"ab cd \r\nef \r\n", 6, ClickedLine{L"ab cd ", 6}, "at the end of a line"},
      {L"ab cd \r\nef \r\n", 9, ClickedLine{L"ef ", 1}, "inside the second line"},
      {L"ab cd \r\nef \r\n", 8, std::nullopt, "in front of a line, right behind its break"},
      {L"ab cd \r\nef \r\n", 7, std::nullopt, "between CR and LF"},
      {L"ab cd \r\nef \r\n", 13, std::nullopt, "at the end of the text"},
      {L"ab\tcd \r\n", 4, ClickedLine{L"cd ", 1}, "any control character ends the line"},
      {L"ab\x1f", 1, ClickedLine{L"ab", 1}, "31 is the last control character"},
      {L"ab cd ", 2, ClickedLine{L"ab cd", 2}, "the text's last character belongs to no line"},
      {L"\r\nab", 0, ClickedLine{L"", 0}, "an empty first line"},
      {L"", 0, ClickedLine{L"", 0}, "an empty text has an empty line"},
  };
  for (const auto& c : kCases) EXPECT_EQ(clickedLine(c.text, c.caret), c.clicked) << c.reason;
}

}  // namespace
}  // namespace corvid
