#include "preview/quick_view_controls.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(QuickViewControls, SmallWindowsSnapToTheLeastSize) {
  const struct {
    double width;
    double height;
    double resultWidth;
    double resultHeight;
  } kCases[] = {
      {11895, 3500, 11895, 3500}, {11894, 9000, 11895, 9000}, {20000, 3499.5, 20000, 3500},
      {0, 0, 11895, 3500},        {15000, 9000, 15000, 9000},
  };
  for (const auto& c : kCases) {
    const QuickViewLayout layout = layoutQuickView(c.width, c.height);
    EXPECT_EQ(layout.width, c.resultWidth) << c.width;
    EXPECT_EQ(layout.height, c.resultHeight) << c.height;
  }
}

TEST(QuickViewControls, ControlsFollowTheWindowsEdges) {
  const QuickViewLayout layout = layoutQuickView(15000, 9000.5);
  const struct {
    Control control;
    double left;
    double top;
  } kCases[] = {
      {Control::cbGuardar, 7980, 7920},
      {Control::Command1, 9690, 7920},
      {Control::cbImprimir, 11400, 7920},
      {Control::cbCerrar, 13110, 7920},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(layout.of(c.control).left, c.left);
    EXPECT_EQ(layout.of(c.control).top, c.top) << "7920.5 rounds to the even row";
  }
  for (const Control same :
       {Control::cbPrinterFonts, Control::imgFontGrow, Control::imgFontShrink}) {
    EXPECT_EQ(layout.of(same).top, 7920);
    EXPECT_EQ(layout.of(same).left, layoutQuickView(0, 0).of(same).left) << "stays at the left";
  }
  EXPECT_EQ(layoutQuickView(15000, 9001.5).of(Control::cbCerrar).top, 7922) << "7921.5 too";
  EXPECT_EQ(layout.of(Control::Text1).width, 14535);
  EXPECT_EQ(layout.of(Control::Text1).height, 7725.5);
  EXPECT_EQ(layout.of(Control::Label1).top, 8160.5);
  EXPECT_EQ(layout.of(Control::Text2).top, 8130.5);
  EXPECT_EQ(layout.of(Control::UpDown1).top, 8130.5);
}

bool overlap(const Rectangle& a, const Rectangle& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

TEST(QuickViewControls, NothingOverlapsOrLeavesTheLeastWindow) {
  const QuickViewLayout layout = layoutQuickView(0, 0);
  for (std::size_t i = 0; i < kControlCount; ++i) {
    const Rectangle& one = layout.controls.at(i);
    EXPECT_GE(one.left, 0) << i;
    EXPECT_GE(one.top, 0) << i;
    EXPECT_LE(one.left + one.width, kLeastWidth - 240) << i << ": borders take 120 on each side";
    EXPECT_LE(one.top + one.height, kLeastHeight - 585) << i << ": caption and borders";
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_FALSE(overlap(one, layout.controls.at(j))) << i << " and " << j;
    }
  }
}

TEST(QuickViewControls, TextsStandInTheOrderOfTheControls) {
  for (std::size_t i = 0; i < kControlCount; ++i) {
    EXPECT_EQ(static_cast<std::size_t>(controlTexts().at(i).control), i);
  }
}

}  // namespace
}  // namespace corvid
