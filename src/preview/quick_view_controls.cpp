#include "preview/quick_view_controls.h"

#include <algorithm>
#include <cmath>

namespace corvid {
namespace {

constexpr double kEdge = 120;  // between the left edge and what stands there
constexpr double kTextMarginX = 465;
constexpr double kTextMarginY = 1275;
constexpr double kButtonRow = 1080;  // from the lower edge, as the two rows below
constexpr double kLabelRow = 840;
constexpr double kEntryRow = 870;

constexpr double kButtonWidth = 1545;
constexpr double kButtonHeight = 435;
constexpr double kIconSize = 480;
constexpr double kLabelHeight = 240;
constexpr double kEntryHeight = 285;

// Left edges of what does not follow the window's right edge.
constexpr double kFontGrowLeft = kEdge;
constexpr double kFontShrinkLeft = 660;
constexpr double kLabelLeft = 1260;
constexpr double kLabelWidth = 990;
constexpr double kEntryLeft = 2280;
constexpr double kEntryWidth = 495;
constexpr double kUpDownWidth = 240;
constexpr double kPrinterFontsLeft = 3165;

constexpr const wchar_t* kGrowTip = L"Ampliar Fuente de Pantalla";
constexpr const wchar_t* kShrinkTip = L"Reducir Fuente de Pantalla";

Rectangle button(double left, double row) { return {left, row, kButtonWidth, kButtonHeight}; }

Rectangle icon(double left, double row) { return {left, row, kIconSize, kIconSize}; }

}  // namespace

const std::array<ControlText, kControlCount>& controlTexts() {
  static constexpr std::array<ControlText, kControlCount> kTexts{{
      {Control::Text1, L"", L"", L"Texto del reporte"},
      {Control::Label1, L"Margen Izq.:", L"", L""},
      {Control::Text2, L"", L"", L""},
      {Control::UpDown1, L"", L"", L"Margen izquierdo"},
      {Control::cbPrinterFonts, L"Fuente Impresora", L"", L""},
      {Control::cbGuardar, L"Guardar como", L"", L""},
      {Control::Command1, L"Buscar Texto", L"", L""},
      {Control::cbImprimir, L"Imprimir", L"", L""},
      {Control::cbCerrar, L"Cerrar", L"", L""},
      {Control::imgFontGrow, L"", kGrowTip, kGrowTip},
      {Control::imgFontShrink, L"", kShrinkTip, kShrinkTip},
  }};
  return kTexts;
}

const Rectangle& QuickViewLayout::of(Control control) const {
  return controls.at(static_cast<std::size_t>(control));
}

QuickViewLayout layoutQuickView(double width, double height) {
  const double w = std::max(width, kLeastWidth);
  const double h = std::max(height, kLeastHeight);
  const double row = std::nearbyint(h - kButtonRow);  // half to even
  return {w,
          h,
          {{
              {kEdge, kEdge, w - kTextMarginX, h - kTextMarginY},
              {kLabelLeft, h - kLabelRow, kLabelWidth, kLabelHeight},
              {kEntryLeft, h - kEntryRow, kEntryWidth, kEntryHeight},
              {kEntryLeft + kEntryWidth, h - kEntryRow, kUpDownWidth, kEntryHeight},
              button(kPrinterFontsLeft, row),
              button(w - 7020, row),
              button(w - 5310, row),
              button(w - 3600, row),
              button(w - 1890, row),
              icon(kFontGrowLeft, row),
              icon(kFontShrinkLeft, row),
          }}};
}

}  // namespace corvid
