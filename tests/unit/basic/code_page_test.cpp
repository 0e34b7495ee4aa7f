#include "basic/code_page.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(WesternEuropeanPage, ReturnsEveryByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const wchar_t character = windows1252().toCharacter(static_cast<std::uint8_t>(byte));
    EXPECT_EQ(windows1252().toByte(character), byte);
  }
}

TEST(WesternEuropeanPage, KnowsItsOwnCharacters) {
  EXPECT_EQ(windows1252().encode(L"\u20AC \u0178 \u00D1\u00BF"), "\x80 \x9F \xD1\xBF");
  EXPECT_EQ(windows1252().decode("\x93\x81\xA3"), L"\u201C\u0081\u00A3");
}

TEST(WesternEuropeanPage, AsksWhereItHasNoCharacter) {
  EXPECT_EQ(windows1252().encode(L"a\u0100b\u0080c\uFFFF"), "a?b?c?");
}

}  // namespace
}  // namespace corvid
