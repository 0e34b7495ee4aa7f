#include "windows/form_controls.h"

#include "windows/font_description.h"
#include "windows/font_icon.h"
#include "windows/rich_edit_text_box.h"
#include "windows/twips.h"

#include <windows.h>
// Needs windows.h first.
#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace corvid {
namespace {

constexpr double kFontSize = 8;       // points
constexpr double kPicture = 420;      // twips
constexpr int kStepMiddle = 1 << 14;  // the up-down control's own position never moves
constexpr int kTextLabel = 99;
constexpr int kStepRange = 2 * kStepMiddle - 1;

struct Kind {
  const wchar_t* windowClass;
  DWORD style;
  DWORD extendedStyle;
};

Kind kindOf(Control control) {
  switch (control) {
    case Control::Text1:
      return {richEditClass(),
              ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_NOHIDESEL | ES_WANTRETURN |
                  WS_VSCROLL | WS_HSCROLL | WS_TABSTOP,
              WS_EX_CLIENTEDGE};
    case Control::Text2:
      return {L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE};
    case Control::UpDown1:
      return {UPDOWN_CLASSW, UDS_ARROWKEYS | UDS_NOTHOUSANDS, 0};
    case Control::Label1:
      return {L"STATIC", SS_LEFTNOWORDWRAP | SS_NOPREFIX, 0};
    case Control::imgFontGrow:
    case Control::imgFontShrink:
      return {L"STATIC", SS_ICON | SS_NOTIFY | SS_CENTERIMAGE, 0};
    default:
      return {L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, 0};
  }
}

DialogItem describe(const ControlText& text) {
  const Kind kind = kindOf(text.control);
  return {idOf(text.control), kind.windowClass, text.caption, kind.style, kind.extendedStyle, {}};
}

Font createFont(int dotsPerInch) {
  LOGFONTW description{};
  description.lfHeight = -std::lround(kFontSize * dotsPerInch / kPointsPerInch);
  description.lfWeight = FW_NORMAL;
  description.lfCharSet = DEFAULT_CHARSET;
  std::wstring(L"MS Shell Dlg 2").copy(description.lfFaceName, LF_FACESIZE - 1);
  return Font(CreateFontIndirectW(&description));
}

void addTip(HWND tips, HWND form, const ControlText& text) {
  TOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;  // the one that every version of the controls knows
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = form;
  tool.uId = reinterpret_cast<UINT_PTR>(windowOf(form, text.control));
  std::wstring tip = text.tip;
  tool.lpszText = tip.data();
  SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

DialogTemplate describeForm() {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_UPDOWN_CLASS | ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  std::vector<DialogItem> items;
  // What stands before a text box names it; this one is for readers of the screen alone.
  items.push_back({kTextLabel, L"STATIC", controlTexts().front().name, 0, 0, {}});
  std::ranges::transform(controlTexts(), std::back_inserter(items), describe);
  return {{kQuickViewCaption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, {}}, items};
}

HWND windowOf(HWND form, Control control) { return GetDlgItem(form, idOf(control)); }

void FormDress::put(HWND form) {
  const int dots = dotsPerInch(form);
  putFont(form, dots);
  putPictures(form, dots);
  if (!std::exchange(hasTips_, true)) {
    addTips(form);
    putNames(form);
  }
  auto* const steps = windowOf(form, Control::UpDown1);
  SendMessageW(steps, UDM_SETBUDDY, reinterpret_cast<WPARAM>(windowOf(form, Control::Text2)), 0);
  SendMessageW(steps, UDM_SETRANGE32, 0, kStepRange);
  SendMessageW(steps, UDM_SETPOS32, 0, kStepMiddle);
}

void FormDress::putFont(HWND form, int dotsPerInch) {
  Font font = createFont(dotsPerInch);
  for (const ControlText& text : controlTexts()) {
    if (text.control == Control::Text1) continue;  // the report has a font of its own
    SendMessageW(windowOf(form, text.control), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()),
                 TRUE);
  }
  font_ = std::move(font);
}

void FormDress::putPictures(HWND form, int dotsPerInch) {
  const int pixels = toPixels(kPicture, dotsPerInch);
  std::array<Icon, 2> pictures{loadFontIcon(FontIcon::Grow, pixels),
                               loadFontIcon(FontIcon::Shrink, pixels)};
  const std::array<Control, 2> controls{Control::imgFontGrow, Control::imgFontShrink};
  for (std::size_t i = 0; i < controls.size(); ++i) {
    SendMessageW(windowOf(form, controls[i]), STM_SETICON,
                 reinterpret_cast<WPARAM>(pictures[i].get()), 0);
  }
  pictures_ = std::move(pictures);
}

// Controls that show no text hold one all the same. A picture would take it for a resource's name.
void FormDress::putNames(HWND form) {
  for (const ControlText& text : controlTexts()) {
    if (*text.name == L'\0' || text.control == Control::Text1) continue;
    DefWindowProcW(windowOf(form, text.control), WM_SETTEXT, 0,
                   reinterpret_cast<LPARAM>(text.name));
  }
}

void FormDress::addTips(HWND form) {
  auto* const tips =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                      form, nullptr, nullptr, nullptr);
  for (const ControlText& text : controlTexts()) {
    if (*text.tip != L'\0') addTip(tips, form, text);
  }
}

void placeControls(HWND form, const QuickViewLayout& layout, int dotsPerInch) {
  const auto pixels = [dotsPerInch](double twips) { return toPixels(twips, dotsPerInch); };
  for (const ControlText& text : controlTexts()) {
    const Rectangle& place = layout.of(text.control);
    SetWindowPos(windowOf(form, text.control), nullptr, pixels(place.left), pixels(place.top),
                 pixels(place.width), pixels(place.height),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  }
  RedrawWindow(form, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace corvid
