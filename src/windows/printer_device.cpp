#include "windows/printer_device.h"

#include "windows/font_description.h"

#include <windows.h>
// Needs windows.h first.
#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvid {
namespace {

constexpr double kTwipsPerInch = 1440;

std::wstring defaultPrinterName() {
  DWORD size = 0;
  GetDefaultPrinterW(nullptr, &size);
  std::wstring name(size, L'\0');
  if (size == 0 || GetDefaultPrinterW(name.data(), &size) == FALSE || size == 0) return {};
  name.resize(size - 1);
  return name;
}

TEXTMETRICW metricsOf(HDC context) {
  TEXTMETRICW metrics{};
  if (GetTextMetricsW(context, &metrics) == FALSE) metrics.tmHeight = 0;
  return metrics;
}

}  // namespace

OpenedPrinter openDefaultPrinter(ContextKind kind) {
  const std::wstring name = defaultPrinterName();
  if (name.empty()) return {};
  const auto create = kind == ContextKind::Prints ? CreateDCW : CreateICW;
  return {DeviceContext(create(L"WINSPOOL", name.c_str(), nullptr, nullptr)), name};
}

double toHalfPoint(double points) { return std::nearbyint(points * 2) / 2; }

int lineHeightOf(HDC context) {
  const TEXTMETRICW metrics = metricsOf(context);
  return static_cast<int>(metrics.tmHeight + metrics.tmExternalLeading);
}

std::optional<int> pixelWidthOf(HDC context, std::wstring_view text) {
  int width = 0;
  for (; !text.empty(); text.remove_prefix(std::min(text.size(), kMostCharacters))) {
    const std::wstring_view piece = text.substr(0, kMostCharacters);
    SIZE size{};
    if (GetTextExtentPoint32W(context, piece.data(), static_cast<int>(piece.size()), &size) ==
        FALSE) {
      return std::nullopt;
    }
    width += static_cast<int>(size.cx);
  }
  return width;
}

PrinterDevice::PrinterDevice(OpenedPrinter printer) : printer_(std::move(printer)) {
  if (!printer_.context) throw PrinterError("CreateDC", GetLastError());
}

double PrinterDevice::toTwips(int pixels, int resolutionIndex) const {
  const int pixelsPerInch = GetDeviceCaps(context(), resolutionIndex);
  if (pixelsPerInch <= 0) throw PrinterError("GetDeviceCaps");
  return pixels * kTwipsPerInch / pixelsPerInch;
}

double PrinterDevice::width() const {
  return toTwips(GetDeviceCaps(context(), HORZRES), LOGPIXELSX);
}

double PrinterDevice::height() const {
  return toTwips(GetDeviceCaps(context(), VERTRES), LOGPIXELSY);
}

double PrinterDevice::textWidth(std::wstring_view text) const {
  const std::optional<int> pixels = pixelWidthOf(context(), text);
  if (!pixels) throw PrinterError("GetTextExtentPoint32", GetLastError());
  return toTwips(*pixels, LOGPIXELSX);
}

double PrinterDevice::lineHeight() const {
  const int pixels = lineHeightOf(context());
  if (pixels <= 0) throw PrinterError("GetTextMetrics", GetLastError());
  return toTwips(pixels, LOGPIXELSY);
}

double PrinterDevice::select(const FontChoice& font) {
  const LOGFONTW description = describeFont(font, GetDeviceCaps(context(), LOGPIXELSY));
  Font created(CreateFontIndirectW(&description));
  if (!created || SelectObject(context(), created.get()) == nullptr) {
    throw PrinterError("SelectObject", GetLastError());
  }
  font_ = std::move(created);
  return offeredSize(font.size);
}

double PrinterDevice::offeredSize(double wanted) const {
  const TEXTMETRICW metrics = metricsOf(context());
  const double pixel = kPointsPerInch / GetDeviceCaps(context(), LOGPIXELSY);
  const double offered = pixel * static_cast<double>(metrics.tmHeight - metrics.tmInternalLeading);
  return std::abs(offered - wanted) <= pixel ? wanted : toHalfPoint(offered);
}

}  // namespace corvid
