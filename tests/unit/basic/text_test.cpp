#include "basic/text.h"

#include "basic/code_page.h"
#include "basic/text_lines.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvid {
namespace {

constexpr std::int64_t kHuge = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kBeyond32Bits = std::int64_t{1} << 32;

TEST(TextPieces, AreCutToWhatThereIs) {
  EXPECT_EQ(left(L"abc", 2), L"ab");
  EXPECT_EQ(left(L"abc", kBeyond32Bits), L"abc");
  EXPECT_EQ(left(L"abc", 0), L"");
  EXPECT_EQ(right(L"abc", 2), L"bc");
  EXPECT_EQ(right(L"abc", kHuge), L"abc");
  EXPECT_EQ(mid(L"abc", 1), L"abc");
  EXPECT_EQ(mid(L"abcdef", 3, 2), L"cd");
  EXPECT_EQ(mid(L"abc", 2, kHuge), L"bc");
  EXPECT_EQ(mid(L"abc", 4), L"");
  EXPECT_EQ(mid(L"abc", kHuge, 1), L"");
}

TEST(TextPieces, RefuseNegativeCountsAndPositions) {
  EXPECT_EQ(errorOf([] { return left(L"abc", -1); }), 5);
  EXPECT_EQ(errorOf([] { return right(L"abc", -1); }), 5);
  EXPECT_EQ(errorOf([] { return mid(L"abc", 0); }), 5);
  EXPECT_EQ(errorOf([] { return mid(L"abc", std::numeric_limits<std::int64_t>::min()); }), 5);
  EXPECT_EQ(errorOf([] { return mid(L"abc", 9, -1); }), 5);
  EXPECT_EQ(errorOf([] { return spaces(-1); }), 5);
}

TEST(TextSplit, KeepsEmptyPieces) {
  EXPECT_EQ(split(L"", L"\n"), Lines{});
  EXPECT_EQ(split(L"\n", L"\n"), (Lines{L"", L""}));
  EXPECT_EQ(split(L"a\r\n\r\nb", L"\r\n"), (Lines{L"a", L"", L"b"}));
  EXPECT_EQ(split(L"a\rb", L"\r\n"), Lines{L"a\rb"});
  EXPECT_EQ(split(L"ab", L""), Lines{L"ab"});
  EXPECT_EQ(join({L"a", L"", L"b"}, L"--"), L"a----b");
}

TEST(TextReplacement, GoesOnBehindWhatItWrote) {
  EXPECT_EQ(replaceAll(L"1.5.2", L".", L","), L"1,5,2");
  EXPECT_EQ(replaceAll(L"aaa", L"aa", L"aaaa"), L"aaaaa");
  EXPECT_EQ(replaceAll(L"abc", L"", L"x"), L"abc");
  EXPECT_EQ(replaceAll(L"", L"a", L"x"), L"");
}

TEST(TextTrim, RemovesBlanksOnly) {
  EXPECT_EQ(trim(L"  a b  "), L"a b");
  EXPECT_EQ(trim(L"\ta\r\n"), L"\ta\r\n");
  EXPECT_EQ(trim(L"   "), L"");
}

TEST(TextCase, FoldsTheWesternEuropeanLetters) {
  const Text lower = L"az\u00E0\u00F1\u00FE\u00FF\u0153\u0161\u017E";
  const Text upper = L"AZ\u00C0\u00D1\u00DE\u0178\u0152\u0160\u017D";
  EXPECT_EQ(upperCase(lower), upper);
  EXPECT_EQ(lowerCase(upper), lower);
  const Text uncased = L"@[`{\u00D7\u00F7\u00DF\u00B5";
  EXPECT_EQ(upperCase(uncased), uncased);
  EXPECT_EQ(lowerCase(uncased), uncased);
  EXPECT_TRUE(equalIgnoringCase(L"Se\u00F1al", L"SE\u00D1AL"));
  EXPECT_FALSE(equalIgnoringCase(L"abc", L"abcd"));
}

TEST(TextLines, CenterCutPadsInFrontOnlyAndRoundsDown) {
  EXPECT_EQ(CenterCut(L"abc", 8), L"  abc");
  EXPECT_EQ(CenterCut(L"abc", 7), L"  abc");
  EXPECT_EQ(CenterCut(L"abc", 4), L"abc");
  EXPECT_EQ(CenterCut(L"abc", 3), L"abc");
  EXPECT_EQ(CenterCut(L"abcdef", 3), L"abc");
}

TEST(WesternEuropeanPage, ReturnsEveryByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const wchar_t character = windows1252().toCharacter(static_cast<std::uint8_t>(byte));
    EXPECT_EQ(windows1252().toByte(character), byte);
  }
}

TEST(WesternEuropeanPage, KnowsItsOwnCharacters) {
  const std::wstring own = L"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ";
  for (std::size_t i = 0; i < own.size(); ++i) {
    EXPECT_EQ(windows1252().toCharacter(static_cast<std::uint8_t>(0x80 + i)), own[i]) << i;
  }
  EXPECT_EQ(windows1252().encode(L"ñ¿ €"), "\xF1\xBF \x80");
}

TEST(WesternEuropeanPage, AsksWhereItHasNoCharacter) {
  EXPECT_EQ(windows1252().encode(L"a\u0100b\u0080c\uFFFF"), "a?b?c?");
}

}  // namespace
}  // namespace corvid
