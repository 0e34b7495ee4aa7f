// Twips at the monitor's resolution.
#include "windows/twips.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvid {
namespace {

TEST(Twips, BecomeRoundedPixels) {
  struct Case {
    double twips;
    int dots;
    int pixels;
    const char* reason;
  };
  const Case cases[] = {
      {11895, 96, 793, "the least width"},
      {3500, 96, 233, "rounded down"},
      {3500, 120, 292, "rounded up"},
      {-22.5, 96, -2, "half away from zero"},
      {1e9, 96, 32767, "beyond the desktop"},
      {-1e9, 96, -32768, "beyond it on the other side"},
      {std::numeric_limits<double>::quiet_NaN(), 96, -32768, "no number"},
  };
  for (const Case& c : cases) EXPECT_EQ(toPixels(c.twips, c.dots), c.pixels) << c.reason;
}

TEST(Twips, PixelsComeBackUnchanged) {
  for (const int dots : {96, 120, 144, 168, 192}) {
    for (int pixels = -3000; pixels <= 3000; ++pixels) {
      ASSERT_EQ(toPixels(toTwips(pixels, dots), dots), pixels) << dots;
    }
  }
}

}  // namespace
}  // namespace corvid
