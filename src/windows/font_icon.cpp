#include "windows/font_icon.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace corvid {
namespace {

// Outlines stand in a square of this side, y downwards.
constexpr double kSide = 32;
constexpr int kSamples = 4;  // in each direction of a pixel

struct Point {
  double x;
  double y;
};

struct Shape {
  std::vector<Point> outline;  // a hole is part of it, reached and left by the same way
  std::uint32_t colour;        // red, green, blue
};

constexpr std::uint32_t kLetterColour = 0x28384C;
constexpr std::uint32_t kGrowColour = 0x1E7A3C;
constexpr std::uint32_t kShrinkColour = 0xB0471E;

// The capital A.
std::vector<Point> letter(double left, double top, double size) {
  std::vector<Point> outline{{0.42, 0},    {0.58, 0},    {1, 1},      {0.8, 1},  {0.7, 0.75},
                             {0.3, 0.75},  {0.2, 1},     {0, 1},      {0.42, 0}, {0.5, 0.22},
                             {0.37, 0.58}, {0.63, 0.58}, {0.5, 0.22}, {0.42, 0}};
  for (Point& point : outline) point = {left + (point.x * size), top + (point.y * size)};
  return outline;
}

std::vector<Point> triangle(double centre, double tip, double base, double halfWidth) {
  return {{centre, tip}, {centre + halfWidth, base}, {centre - halfWidth, base}};
}

std::vector<Shape> shapesOf(FontIcon icon) {
  if (icon == FontIcon::Grow) {
    return {{letter(1, 7, 20), kLetterColour}, {triangle(26, 5, 12, 5), kGrowColour}};
  }
  return {{letter(4, 13, 14), kLetterColour}, {triangle(26, 14, 7, 5), kShrinkColour}};
}

bool crosses(const Point& a, const Point& b, const Point& point) {
  if ((a.y > point.y) == (b.y > point.y)) return false;
  return point.x < a.x + ((point.y - a.y) * (b.x - a.x) / (b.y - a.y));
}

// By the number of outlines to the right: odd is inside.
bool isInside(const std::vector<Point>& outline, const Point& point) {
  bool inside = false;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    if (crosses(outline[i], outline[(i + 1) % outline.size()], point)) inside = !inside;
  }
  return inside;
}

// The share of a pixel that a shape covers, 0 to 255.
std::uint32_t coverage(const Shape& shape, int column, int row, double scale) {
  int hits = 0;
  for (int i = 0; i < kSamples * kSamples; ++i) {
    const double x = column + ((i % kSamples + 0.5) / kSamples);
    const double y = row + ((i / kSamples + 0.5) / kSamples);  // NOLINT(bugprone-integer-division)
    if (isInside(shape.outline, {x * scale, y * scale})) ++hits;
  }
  return static_cast<std::uint32_t>(hits * 255 / (kSamples * kSamples));
}

std::vector<std::uint32_t> paint(FontIcon icon, int pixels) {
  const std::vector<Shape> shapes = shapesOf(icon);
  std::vector<std::uint32_t> picture;
  for (int i = 0; i < pixels * pixels; ++i) {
    std::uint32_t pixel = 0;
    for (const Shape& shape : shapes) {
      const std::uint32_t alpha = coverage(shape, i % pixels, i / pixels, kSide / pixels);
      if (alpha > 0) pixel = alpha << 24U | shape.colour;  // shapes do not touch
    }
    picture.push_back(pixel);
  }
  return picture;
}

Bitmap toBitmap(const std::vector<std::uint32_t>& picture, int pixels) {
  BITMAPINFO description{};
  description.bmiHeader.biSize = sizeof description.bmiHeader;
  description.bmiHeader.biWidth = pixels;
  description.bmiHeader.biHeight = -pixels;  // rows from the top
  description.bmiHeader.biPlanes = 1;
  description.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  Bitmap bitmap(CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (bitmap) std::ranges::copy(picture, static_cast<std::uint32_t*>(bits));
  return bitmap;
}

}  // namespace

Icon drawFontIcon(FontIcon icon, int pixels) {
  const Bitmap colour = toBitmap(paint(icon, pixels), pixels);
  const Bitmap mask(CreateBitmap(pixels, pixels, 1, 1, nullptr));
  if (!colour || !mask) return {};
  ICONINFO description{TRUE, 0, 0, mask.get(), colour.get()};
  return Icon(CreateIconIndirect(&description));
}

}  // namespace corvid
