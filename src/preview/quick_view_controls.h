// The preview window's controls: what they say and where they stand. Measures are twips (1440 to
// the inch) in double precision.
#pragma once

#include <array>
#include <cstddef>

namespace corvid {

inline constexpr const wchar_t* kQuickViewCaption = L"Documento: Vista Rápida";

// In tab order; a label stands before what it names.
enum class Control {
  Text1,
  Label1,
  Text2,
  UpDown1,
  cbPrinterFonts,
  cbGuardar,
  Command1,
  cbImprimir,
  cbCerrar,
  imgFontGrow,
  imgFontShrink,
};
inline constexpr std::size_t kControlCount = 11;

struct ControlText {
  Control control;
  const wchar_t* caption;  // empty for a control that shows none
  const wchar_t* tip;      // empty for a control without one
  const wchar_t* name;     // for readers of the screen; empty where a caption or a label tells
};
// In the enumeration's order.
[[nodiscard]] const std::array<ControlText, kControlCount>& controlTexts();

struct Rectangle {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;

  bool operator==(const Rectangle&) const = default;
};

// The window's least outer size; also its width when first shown.
inline constexpr double kLeastWidth = 11895;
inline constexpr double kLeastHeight = 3500;
inline constexpr double kInitialHeight = 8000;

struct QuickViewLayout {
  // The window's outer size: the one asked for, raised to the least size where it is below.
  double width = 0;
  double height = 0;
  // In client coordinates, in the enumeration's order.
  std::array<Rectangle, kControlCount> controls;

  [[nodiscard]] const Rectangle& of(Control control) const;
};

// Places every control in a window of an outer size.
[[nodiscard]] QuickViewLayout layoutQuickView(double width, double height);

}  // namespace corvid
