// What the system tells the form, and what its user does.
#include "windows/quick_view_form.h"
#include "windows/text_menu.h"

#include <windows.h>
// Needs windows.h first.
#include <commctrl.h>

#include <string_view>
#include <utility>

namespace corvid {
namespace {

constexpr UINT kMarginLeft = WM_APP + 1;

QuickViewForm* formOf(HWND window) {
  const LONG_PTR form = GetWindowLongPtrW(window, DWLP_USER);
  return reinterpret_cast<QuickViewForm*>(form);  // NOLINT(performance-no-int-to-ptr)
}

bool isButton(HWND control) {
  return (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
}

bool isDown(int key) { return GetKeyState(key) < 0; }

KeyPress keyPress(int key) {
  return {key, isDown(VK_CONTROL) && !isDown(VK_MENU), isDown(VK_SHIFT)};
}

// Characters of keys that the form used up, and at which a single line of text would only beep.
bool isUsedUpCharacter(wchar_t character, bool isText) {
  constexpr std::wstring_view kControlLetters = L"\x06\x10\x13";  // of F, P and S
  return character == L'\t' || character == VK_ESCAPE || (character == L'\r' && !isText) ||
         kControlLetters.find(character) != std::wstring_view::npos;
}

HWND toHandle(WPARAM wide) {
  return reinterpret_cast<HWND>(wide);  // NOLINT(performance-no-int-to-ptr): the system's way
}

using Action = void (QuickView::*)();

Action actionOf(Control control) {
  switch (control) {
    case Control::imgFontGrow:
      return &QuickView::growScreenFont;
    case Control::imgFontShrink:
      return &QuickView::shrinkScreenFont;
    case Control::cbPrinterFonts:
      return &QuickView::choosePrinterFont;
    case Control::cbGuardar:
      return &QuickView::save;
    case Control::Command1:
      return &QuickView::search;
    case Control::cbImprimir:
      return &QuickView::print;
    case Control::cbCerrar:
      return &QuickView::close;
    default:
      return nullptr;
  }
}

bool isPicture(int control) {
  return control == idOf(Control::imgFontGrow) || control == idOf(Control::imgFontShrink);
}

}  // namespace

// No exception may pass through the system's code.
INT_PTR CALLBACK QuickViewForm::received(HWND window, UINT message, WPARAM wide, LPARAM data) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, data);
    return FALSE;
  }
  auto* const form = formOf(window);
  if (form == nullptr) return FALSE;
  const auto alive = form->weak_from_this().lock();
  if (!alive || form->window_ == nullptr) return FALSE;
  try {
    return form->onMessage(message, wide, data) ? TRUE : FALSE;
  } catch (...) {
    return FALSE;
  }
}

bool QuickViewForm::onMessage(UINT message, WPARAM wide, LPARAM data) {
  switch (message) {
    case WM_COMMAND:
      return onCommand(LOWORD(wide), HIWORD(wide));
    case WM_NOTIFY:
      return onNotify(*reinterpret_cast<const NMHDR*>(data));  // NOLINT(performance-no-int-to-ptr)
    case WM_SIZE:
      if (wide != SIZE_MINIMIZED) fit();
      return true;
    case WM_GETMINMAXINFO:
      limitSize(*reinterpret_cast<MINMAXINFO*>(data));  // NOLINT(performance-no-int-to-ptr)
      return true;
    case WM_ACTIVATE:
      if (LOWORD(wide) != WA_INACTIVE) view_.activate();
      return false;  // the system gives the focus back to its control
    case WM_CLOSE:
      view_.close();
      return true;
    case WM_KEYDOWN:
      return view_.keyDown(keyPress(static_cast<int>(wide)));
    case kMarginLeft:
      if (visible_) view_.leaveMarginEntry();
      return true;
    case WM_DPICHANGED:
      takeResolution(*reinterpret_cast<const RECT*>(data));  // NOLINT(performance-no-int-to-ptr)
      return true;
    case WM_DESTROY:
      keptText_ = box_.text();
      keptBounds_ = bounds();
      return false;
    case WM_NCDESTROY:
      windowGone();
      return false;
    default:
      return false;
  }
}

// Loops that treat the form as a dialog make a command of Escape.
bool QuickViewForm::onCommand(int control, int notification) {
  if (control == IDCANCEL) return view_.keyDown({kEscapeKey});
  const auto action = actionOf(static_cast<Control>(control - idOf(Control{})));
  const bool isDoubleClick = notification == STN_DBLCLK && isPicture(control);
  if (action == nullptr || (notification != BN_CLICKED && !isDoubleClick)) return false;
  (view_.*action)();
  return true;
}

// The up-down control only tells its steps; its own position stays.
bool QuickViewForm::onNotify(const NMHDR& notification) {
  if (notification.code != UDN_DELTAPOS) return false;
  view_.stepMargin(reinterpret_cast<const NMUPDOWN&>(notification).iDelta);
  SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
  return true;
}

LRESULT CALLBACK QuickViewForm::controlReceived(HWND control, UINT message, WPARAM wide,
                                                LPARAM data, UINT_PTR, DWORD_PTR owner) {
  auto* const form = reinterpret_cast<QuickViewForm*>(owner);  // NOLINT(performance-no-int-to-ptr)
  const auto alive = form->weak_from_this().lock();
  if (!alive) return DefSubclassProc(control, message, wide, data);
  try {
    return form->onControl(control, message, wide, data);
  } catch (...) {
    return 0;
  }
}

LRESULT QuickViewForm::onControl(HWND control, UINT message, WPARAM wide, LPARAM data) {
  const bool isText = control == windowOf(window_, Control::Text1);
  switch (message) {
    case WM_KEYDOWN:
      if (onKey(control, static_cast<int>(wide))) return 0;
      break;
    case WM_CHAR:
      if (isUsedUpCharacter(static_cast<wchar_t>(wide), isText)) return 0;
      break;
    case WM_KILLFOCUS:
      onFocusLost(control, toHandle(wide));
      break;
    case WM_LBUTTONDOWN:
      pressedInText_ = isText;
      break;
    case WM_CONTEXTMENU:
      if (isText) return showTextMenu(control, data), 0;
      break;
    case WM_MOUSEWHEEL:
      // The control would enlarge its picture of the text, and not the font.
      if ((LOWORD(wide) & MK_CONTROL) != 0) return onWheel(GET_WHEEL_DELTA_WPARAM(wide)), 0;
      break;
    default:
      break;
  }
  const LRESULT result = DefSubclassProc(control, message, wide, data);
  // The text keeps its selection when the focus comes to it.
  if (message == WM_GETDLGCODE && isText) return result & ~LRESULT{DLGC_HASSETSEL};
  if (message == WM_LBUTTONUP && isText) onTextReleased();
  return result;
}

// The keys of a dialog, whatever loop of the host brings them.
bool QuickViewForm::onKey(HWND control, int key) {
  if (key == VK_TAB && !isDown(VK_CONTROL)) {
    SendMessageW(window_, WM_NEXTDLGCTL, isDown(VK_SHIFT) ? TRUE : FALSE, FALSE);
    return true;
  }
  if (key == VK_RETURN && isButton(control)) {
    SendMessageW(control, BM_CLICK, 0, 0);
    return true;
  }
  return view_.keyDown(keyPress(key));
}

void QuickViewForm::onWheel(int delta) {
  wheel_ += delta;
  const int notches = wheel_ / WHEEL_DELTA;
  wheel_ -= notches * WHEEL_DELTA;
  if (notches != 0) view_.stepScreenFont(notches);
}

void QuickViewForm::onTextReleased() {
  if (std::exchange(pressedInText_, false) && box_.selectionLength() == 0) view_.clickText();
}

// Told when the focus has arrived, so that a message may take it away again. A message's own
// window is no control of the form.
void QuickViewForm::onFocusLost(HWND control, HWND gainsFocus) {
  if (control == windowOf(window_, Control::Text2) && IsChild(window_, gainsFocus) != FALSE) {
    PostMessageW(window_, kMarginLeft, 0, 0);
  }
}

}  // namespace corvid
