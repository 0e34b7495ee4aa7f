#include "windows/font_icon.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

// The side of a square icon, 0 for none.
int sideOf(const Icon& icon) {
  ICONINFO info{};
  if (GetIconInfo(icon.get(), &info) == FALSE) return 0;
  BITMAP colour{};
  GetObjectW(info.hbmColor, sizeof colour, &colour);
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  return colour.bmWidth == colour.bmHeight ? colour.bmWidth : 0;
}

// A program that lost the resources would show its preview without pictures, and say nothing.
TEST(FontIcons, ArePartOfTheProgramAndHaveTheWantedSize) {
  for (const int pixels : {16, 28, 42, 56, 70}) {
    EXPECT_EQ(sideOf(loadFontIcon(FontIcon::Grow, pixels)), pixels);
    EXPECT_EQ(sideOf(loadFontIcon(FontIcon::Shrink, pixels)), pixels);
  }
}

}  // namespace
}  // namespace corvid
