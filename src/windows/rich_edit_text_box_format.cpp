// The box's font and its tabs, which are of the whole text.
#include "windows/drawing_handles.h"
#include "windows/font_description.h"
#include "windows/printer_device.h"
#include "windows/rich_edit_text_box.h"
#include "windows/twips.h"

#include <cmath>
#include <optional>

namespace corvid {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr int kTabColumns = 8;

// Of a letter, as the screen draws the font.
double columnTwips(const std::wstring& fontName, double points) {
  const DeviceContext screen(CreateCompatibleDC(nullptr));
  const int dots = GetDeviceCaps(screen.get(), LOGPIXELSY);
  const LOGFONTW description = describeFont({fontName, points, false, false}, dots);
  const Font font(CreateFontIndirectW(&description));
  auto* const before = SelectObject(screen.get(), font.get());
  const std::optional<int> pixels = pixelWidthOf(screen.get(), L"nnnnnnnn");
  SelectObject(screen.get(), before);
  return toTwips(pixels.value_or(0), dots) / 8;
}

CHARFORMATW emptyFormat(DWORD mask) {
  CHARFORMATW format{};
  format.cbSize = sizeof format;
  format.dwMask = mask;
  return format;
}

}  // namespace

void RichEditTextBox::setFont(const std::wstring& name, double points) {
  CHARFORMATW format = emptyFormat(CFM_FACE | CFM_SIZE);
  format.bPitchAndFamily = FIXED_PITCH | FF_MODERN;  // of the font that stands in for a missing one
  name.copy(format.szFaceName, LF_FACESIZE - 1);
  format.yHeight = static_cast<LONG>(points * kTwipsPerPoint);
  setFormat(format);
  setTabs(name, points);
}

void RichEditTextBox::setTabs(const std::wstring& fontName, double points) {
  const double column = columnTwips(fontName, points);
  tabs_.cbSize = sizeof tabs_;
  tabs_.dwMask = PFM_TABSTOPS;
  tabs_.cTabCount = MAX_TAB_STOPS;
  for (int i = 0; i < MAX_TAB_STOPS; ++i) {
    tabs_.rgxTabs[i] = std::lround(column * kTabColumns * (i + 1));
  }
  const CHARRANGE selection = heldSelection();
  applyTabs();
  selectHeld(selection.cpMin, selection.cpMax);
}

// To all paragraphs; new ones take it from the one that they are split from.
void RichEditTextBox::applyTabs() {
  if (tabs_.cbSize == 0) return;
  selectHeld(0, -1);
  tell(EM_SETPARAFORMAT, 0, &tabs_);
}

// Of the text that is there, and of what comes.
void RichEditTextBox::setFormat(const CHARFORMATW& format) {
  tell(EM_SETCHARFORMAT, SCF_DEFAULT, &format);
  tell(EM_SETCHARFORMAT, SCF_ALL, &format);
}

// The system's own font, in which the control begins, is a bold one.
void RichEditTextBox::setPlainStyle() { setFormat(emptyFormat(CFM_BOLD | CFM_ITALIC)); }

}  // namespace corvid
