#include "preview/quick_view_controls.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

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

}  // namespace
}  // namespace corvid
