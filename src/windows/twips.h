// Twips (1440 to the inch) and the pixels of the monitor that a window is on.
#pragma once

#include <windows.h>

namespace corvid {

// The dots per inch that the window's pixels count by, under the host's own awareness setting.
[[nodiscard]] int dotsPerInch(HWND window);

// Rounded; what is beyond a 16-bit coordinate is cut to it.
[[nodiscard]] int toPixels(double twips, int dotsPerInch);
[[nodiscard]] double toTwips(int pixels, int dotsPerInch);

}  // namespace corvid
