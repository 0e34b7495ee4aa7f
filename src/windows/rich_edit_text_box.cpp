#include "windows/rich_edit_text_box.h"

#include "windows/system_library.h"

#include <windows.h>
// Need windows.h first.
#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace corvid {
namespace {

constexpr wchar_t kHeldLineEnd = L'\r';
constexpr LPARAM kNoWrap = 1;
constexpr UINT kUnicode = 1200;    // as a code page
constexpr UINT_PTR kSubclass = 1;  // the form's own is 0
constexpr UINT_PTR kHandOverTimer = 0xC0;
constexpr UINT kHandOverPause = 100;  // milliseconds

struct RichEditLibrary {
  const wchar_t* file;
  const wchar_t* windowClass;
};
constexpr RichEditLibrary kLibraries[] = {
    {L"msftedit.dll", L"RICHEDIT50W"},
    {L"riched20.dll", L"RichEdit20W"},
};

const wchar_t* loadRichEdit() {
  for (const RichEditLibrary& library : kLibraries) {
    if (loadSystemLibrary(library.file) != nullptr) return library.windowClass;
  }
  return nullptr;
}

// A NUL would end the text for the control.
std::wstring withoutNuls(std::wstring_view text) {
  std::wstring clean(text);
  std::ranges::replace(clean, L'\0', L' ');
  return clean;
}

std::wstring withLineBreaks(const std::wstring& held) {
  std::wstring text;
  text.reserve(held.size() + static_cast<std::size_t>(std::ranges::count(held, kHeldLineEnd)));
  for (const wchar_t character : held) {
    text += character;
    if (character == kHeldLineEnd) text += L'\n';
  }
  return text;
}

std::int32_t textLength(const std::wstring& held) {
  return static_cast<std::int32_t>(static_cast<std::ptrdiff_t>(held.size()) +
                                   std::ranges::count(held, kHeldLineEnd));
}

// Messages at which the control must hold everything: its own, and those that show, read or change
// its text.
bool needsText(UINT message) {
  constexpr UINT kOwnMessages = WM_USER + 0x200;  // the rich edit control's
  if (message >= EM_GETSEL && message <= EM_SETSEL + 0x30) return true;
  if (message > WM_USER && message < kOwnMessages) return true;
  switch (message) {
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
    case WM_SETTEXT:
    case WM_GETOBJECT:
    case WM_COPY:
    case WM_CUT:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_PRINT:
    case WM_PRINTCLIENT:
      return true;
    default:
      return false;
  }
}

}  // namespace

const wchar_t* richEditClass() {
  static const wchar_t* const windowClass = loadRichEdit();
  return windowClass;
}

RichEditTextBox::RichEditTextBox(std::function<void()> makeControl)
    : makeControl_(std::move(makeControl)) {}

void RichEditTextBox::attach(HWND control) {
  if (control_ != nullptr) RemoveWindowSubclass(control_, received, kSubclass);
  control_ = control;
  if (control == nullptr) return;
  SetWindowSubclass(control, received, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  tell(EM_SETTEXTMODE, TM_PLAINTEXT);
  SendMessageW(control, EM_EXLIMITTEXT, 0, std::numeric_limits<std::int32_t>::max() - 1);
  SendMessageW(control, EM_SETTARGETDEVICE, 0, kNoWrap);
  // No font but the chosen one: columns stay columns whatever the characters.
  tell(EM_SETLANGOPTIONS);
  setPlainStyle();
}

LRESULT CALLBACK RichEditTextBox::received(HWND control, UINT message, WPARAM wide, LPARAM data,
                                           UINT_PTR, DWORD_PTR box) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the pointer on as a number
  reinterpret_cast<RichEditTextBox*>(box)->onMessage(message, wide);
  if (message == WM_TIMER && wide == kHandOverTimer) return 0;
  return DefSubclassProc(control, message, wide, data);
}

void RichEditTextBox::onMessage(UINT message, WPARAM wide) {
  const bool isDue = message == WM_TIMER && wide == kHandOverTimer;
  if (isDue || mayHandOver(message)) handOver();
}

bool RichEditTextBox::mayHandOver(UINT message) const {
  if (message != WM_PAINT) return needsText(message);
  // A host that runs its messages after each line would paint, and hand over, at each.
  return GetTickCount64() - lastHandOver_ >= kHandOverPause;
}

void RichEditTextBox::handOver() {
  if (gathered_.empty() || control_ == nullptr) return;
  const std::wstring text = std::exchange(gathered_, {});
  KillTimer(control_, kHandOverTimer);
  lastHandOver_ = GetTickCount64();
  ++handOvers_;
  const LONG end = heldLength(GTL_DEFAULT);
  // Painting is most of the time: all lines are painted once.
  tell(WM_SETREDRAW, FALSE);
  selectHeld(end, end);
  tell(EM_REPLACESEL, FALSE, text.c_str());
  scrollToLineStarts();
  tell(WM_SETREDRAW, TRUE);
  InvalidateRect(control_, nullptr, TRUE);
}

LRESULT RichEditTextBox::send(UINT message, WPARAM wide, const void* data) {
  if (control_ == nullptr) makeControl_();
  if (control_ == nullptr) return -1;
  return SendMessageW(control_, message, wide, reinterpret_cast<LPARAM>(data));
}

void RichEditTextBox::tell(UINT message, WPARAM wide, const void* data) {
  static_cast<void>(send(message, wide, data));
}

LONG RichEditTextBox::heldLength(DWORD flags) {
  const GETTEXTLENGTHEX request{flags | GTL_PRECISE | GTL_NUMCHARS, kUnicode};
  const LRESULT length = send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&request));
  return std::max(static_cast<LONG>(length), LONG{0});
}

std::wstring RichEditTextBox::heldText(LONG from, LONG to) {
  if (to <= from) return {};
  std::wstring text(static_cast<std::size_t>(to - from) + 1, L'\0');
  TEXTRANGEW range{{from, to}, text.data()};
  const LRESULT copied = send(EM_GETTEXTRANGE, 0, &range);
  text.resize(std::min(static_cast<std::size_t>(copied), text.size() - 1));
  return text;
}

LONG RichEditTextBox::heldPosition(std::int32_t offset) {
  const std::wstring held = heldText(0, heldLength(GTL_DEFAULT));
  std::int32_t passed = 0;
  LONG position = 0;
  for (const wchar_t character : held) {
    passed += character == kHeldLineEnd ? 2 : 1;
    if (passed > offset) break;
    ++position;
  }
  return position;
}

CHARRANGE RichEditTextBox::heldSelection() {
  CHARRANGE range{};
  tell(EM_EXGETSEL, 0, &range);
  // A selection of everything counts one character after the last.
  const LONG end = heldLength(GTL_DEFAULT);
  return {std::clamp(range.cpMin, LONG{0}, end), std::clamp(range.cpMax, LONG{0}, end)};
}

void RichEditTextBox::selectHeld(LONG from, LONG to) {
  const CHARRANGE range{from, to};
  tell(EM_EXSETSEL, 0, &range);
}

std::wstring RichEditTextBox::text() {
  return withLineBreaks(heldText(0, heldLength(GTL_DEFAULT)));
}

void RichEditTextBox::setText(const std::wstring& text) {
  const std::wstring clean = withoutNuls(text);
  tell(WM_SETTEXT, 0, clean.c_str());
  applyTabs();  // they go with the text
  selectHeld(0, 0);
}

std::int32_t RichEditTextBox::length() { return heldLength(GTL_USECRLF); }

void RichEditTextBox::append(std::wstring_view text) {
  if (control_ == nullptr) makeControl_();
  if (control_ == nullptr) return;
  const bool isFirst = gathered_.empty();
  gathered_ += withoutNuls(text);
  if (isFirst && SetTimer(control_, kHandOverTimer, kHandOverPause, nullptr) == 0) handOver();
}

// The end of a wide line, a page break's for one, takes the beginning of all others out of view.
void RichEditTextBox::scrollToLineStarts() {
  POINT place{};
  tell(EM_GETSCROLLPOS, 0, &place);
  // By the scroll bar's way: places are 16-bit in long texts.
  if (place.x != 0) tell(WM_HSCROLL, SB_LEFT);
}

std::int32_t RichEditTextBox::selectionStart() {
  return textLength(heldText(0, heldSelection().cpMin));
}

std::int32_t RichEditTextBox::selectionLength() {
  const CHARRANGE range = heldSelection();
  return textLength(heldText(range.cpMin, range.cpMax));
}

void RichEditTextBox::select(std::int32_t start, std::int32_t length) {
  const std::int32_t from = std::max(start, 0);
  const std::int64_t to = std::int64_t{from} + std::max(length, 0);
  const auto most = std::int64_t{std::numeric_limits<std::int32_t>::max()};
  selectHeld(heldPosition(from), heldPosition(static_cast<std::int32_t>(std::min(to, most))));
  tell(EM_SCROLLCARET);
}

bool RichEditTextBox::find(const std::wstring& text, std::int32_t from) {
  if (text.empty()) return false;
  FINDTEXTEXW request{{heldPosition(from), -1}, text.c_str(), {}};
  if (send(EM_FINDTEXTEXW, FR_DOWN, &request) < 0) return false;
  selectHeld(request.chrgText.cpMin, request.chrgText.cpMax);
  tell(EM_SCROLLCARET);
  return true;
}

void RichEditTextBox::setLocked(bool locked) { tell(EM_SETREADONLY, locked ? TRUE : FALSE); }

void RichEditTextBox::refresh() {
  handOver();
  if (control_ != nullptr) RedrawWindow(control_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

}  // namespace corvid
