#include "documents/str2lines.h"

#include "support/error_of.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(WordWrap, BreaksWhereALineEndsOrAWordDoes) {
  const struct {
    std::wstring text;
    std::int32_t width;
    Lines lines;
    const char* reason;
  } kCases[] = {
      {L"", 10, {}, "no text, no lines"},
      {L"Calle 5", 10, {L"Calle 5"}, "shorter than the width"},
      {L"Calle 5, casa 3", 10, {L"Calle 5,", L"casa 3"}, "the blank behind the comma is used up"},
      {L"uno dos,tres", 9, {L"uno dos,", L"tres"}, "a comma stays on its line"},
      {L"uno;dos:tres", 6, {L"uno;", L"dos:", L"tres"}, "other marks do too"},
      {L"que?si!no.", 8, {L"que?si!", L"no."}, "closing marks"},
      {L"abc \u00BFde?", 7, {L"abc ", L"\u00BFde?"}, "an opening mark begins the next line"},
      {L"abc\u00A1def", 5, {L"abc", L"\u00A1def"}, "the other opening mark"},
      {L"\u00BFabcdef", 4, {L"\u00BFabc", L"def"}, "an opening mark in front is no break"},
      {L" abcdef", 4, {L"", L"abcd", L"ef"}, "a blank in front ends an empty line"},
      {L"abcdefgh", 3, {L"abc", L"def", L"gh"}, "hard where there is no break"},
      {L"abc def", 7, {L"abc", L"def"}, "a last line of full width is broken all the same"},
      {L"abcdef", 6, {L"abcdef"}, "full width, no break, nothing left"},
      {L"ab cd", 1, {L"a", L"b", L"", L"c", L"d"}, "one character a line"},
      {L"uno\r\ndos", 10, {L"uno", L"dos"}, "CR LF"},
      {L"uno\ndos\rtres", 20, {L"uno\ndos", L"tres"}, "a CR goes before an earlier LF"},
      {L"uno\ndos", 20, {L"uno", L"dos"}, "LF alone"},
      {L"uno\r\n\r\n \t dos", 20, {L"uno", L"dos"}, "blank lines and indents are used up"},
      {L"\r\nuno", 20, {L"", L"uno"}, "a break in front ends an empty line"},
      {L"uno\r\n", 20, {L"uno"}, "a break at the end begins no line"},
      {L"uno\r\n          dos", 4, {L"uno", L"dos"}, "blanks behind the chunk are used up too"},
      {L"abcd\r\nef", 4, {L"abcd", L"", L"ef"}, "a break behind the chunk is found later"},
  };
  for (const auto& item : kCases) {
    EXPECT_EQ(lmStr2Lines(item.text, item.width), item.lines) << item.reason;
  }
}

TEST(WordWrap, RefusesAWidthBelowOneEvenForNoText) {
  for (const std::int32_t width : {0, -1}) {
    EXPECT_EQ(errorOf([&] { return lmStr2Lines(L"", width); }), 5) << width;
  }
}

}  // namespace
}  // namespace corvid
