// A printer's device context, its measures and its font.
#pragma once

#include "preview/report_dialogs.h"
#include "preview/report_printer.h"
#include "windows/drawing_handles.h"

#include <windows.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvid {

struct OpenedPrinter {
  DeviceContext context;  // none when there is no printer, or it does not answer
  std::wstring name;
};

// A context that only measures starts no job, which a driver may answer more quickly.
enum class ContextKind { Measures, Prints };

using PrinterOpener = std::function<OpenedPrinter(ContextKind)>;

// The user's default printer.
[[nodiscard]] OpenedPrinter openDefaultPrinter(ContextKind kind);

// The height, in pixels, of a line of text in the context's font; 0 when it cannot be measured.
[[nodiscard]] int lineHeightOf(HDC context);

// The system's drawing calls take no more at once.
inline constexpr std::size_t kMostCharacters = 8192;

// The width, in pixels, of a text of any length; nothing when it cannot be measured.
[[nodiscard]] std::optional<int> pixelWidthOf(HDC context, std::wstring_view text);

// Measures are twips of the printable area. Failing calls throw PrinterError.
class PrinterDevice {
 public:
  // Throws for a printer without a context.
  explicit PrinterDevice(OpenedPrinter printer);

  [[nodiscard]] HDC context() const { return printer_.context.get(); }
  [[nodiscard]] const std::wstring& name() const { return printer_.name; }
  [[nodiscard]] double width() const;
  [[nodiscard]] double height() const;
  [[nodiscard]] double textWidth(std::wstring_view text) const;
  [[nodiscard]] double lineHeight() const;

  // Measures and prints with a font from now on. Returns the size in points that the device offers
  // for it: the one asked for where the device meets it to the pixel, else the nearest half point.
  double select(const FontChoice& font);

 private:
  [[nodiscard]] double toTwips(int pixels, int resolutionIndex) const;
  [[nodiscard]] double offeredSize(double wanted) const;

  Font font_;  // before the context, which has it selected: members go in reverse order
  OpenedPrinter printer_;
};

// The nearest half point.
[[nodiscard]] double toHalfPoint(double points);

}  // namespace corvid
