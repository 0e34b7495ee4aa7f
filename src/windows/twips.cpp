#include "windows/twips.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace corvid {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr int kUsualDotsPerInch = 96;

using Coordinate = std::numeric_limits<std::int16_t>;

int fromDesktop(HWND window) {
  auto* const context = GetDC(window);
  const int dots = GetDeviceCaps(context, LOGPIXELSX);
  ReleaseDC(window, context);
  return dots;
}

}  // namespace

int dotsPerInch(HWND window) {
  using Call = UINT(WINAPI*)(HWND);
  // Missing before Windows 10.
  const auto ask =
      std::bit_cast<Call>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow"));
  const int dots = ask != nullptr ? static_cast<int>(ask(window)) : fromDesktop(window);
  return dots > 0 ? dots : kUsualDotsPerInch;
}

int toPixels(double twips, int dotsPerInch) {
  const double pixels = std::round(twips * dotsPerInch / kTwipsPerInch);
  if (!(pixels > Coordinate::min())) return Coordinate::min();
  return pixels < Coordinate::max() ? static_cast<int>(pixels) : Coordinate::max();
}

double toTwips(int pixels, int dotsPerInch) { return pixels * kTwipsPerInch / dotsPerInch; }

}  // namespace corvid
