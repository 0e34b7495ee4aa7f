#include "windows/rich_edit_text_box.h"

#include "windows/system_library.h"

#include <windows.h>
// Needs windows.h first.
#include <commdlg.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <utility>

namespace corvid {
namespace {

constexpr wchar_t kHeldLineEnd = L'\r';
constexpr double kTwipsPerPoint = 20;
constexpr LPARAM kNoWrap = 1;
constexpr UINT kUnicode = 1200;  // as a code page

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

std::string inSystemCodePage(const std::wstring& text) {
  const auto length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

CHARFORMATW emptyFormat(DWORD mask) {
  CHARFORMATW format{};
  format.cbSize = sizeof format;
  format.dwMask = mask;
  return format;
}

}  // namespace

const wchar_t* richEditClass() {
  static const wchar_t* const windowClass = loadRichEdit();
  return windowClass;
}

RichEditTextBox::RichEditTextBox(std::function<void()> makeControl)
    : makeControl_(std::move(makeControl)) {}

void RichEditTextBox::attach(HWND control) {
  control_ = control;
  if (control == nullptr) return;
  tell(EM_SETTEXTMODE, TM_PLAINTEXT);
  SendMessageW(control, EM_EXLIMITTEXT, 0, std::numeric_limits<std::int32_t>::max() - 1);
  SendMessageW(control, EM_SETTARGETDEVICE, 0, kNoWrap);
  // No font but the chosen one: columns stay columns whatever the characters.
  tell(EM_SETLANGOPTIONS);
  // The system's own font, in which it begins, is a bold one.
  setFormat(emptyFormat(CFM_BOLD | CFM_ITALIC));
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
  selectHeld(0, 0);
}

std::int32_t RichEditTextBox::length() { return heldLength(GTL_USECRLF); }

void RichEditTextBox::append(std::wstring_view text) {
  const std::wstring clean = withoutNuls(text);
  const LONG end = heldLength(GTL_DEFAULT);
  // Painting is most of the time: many lines are painted once, when the host runs its messages.
  tell(WM_SETREDRAW, FALSE);
  selectHeld(end, end);
  tell(EM_REPLACESEL, FALSE, clean.c_str());
  scrollToLineStarts();
  tell(WM_SETREDRAW, TRUE);
  if (control_ != nullptr) InvalidateRect(control_, nullptr, TRUE);
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

std::wstring RichEditTextBox::fontName() {
  CHARFORMATW format = emptyFormat(CFM_FACE);
  tell(EM_GETCHARFORMAT, SCF_DEFAULT, &format);
  return format.szFaceName;
}

void RichEditTextBox::setFontName(const std::wstring& name) {
  CHARFORMATW format = emptyFormat(CFM_FACE);
  format.bPitchAndFamily = FIXED_PITCH | FF_MODERN;  // of the font that stands in for a missing one
  name.copy(format.szFaceName, LF_FACESIZE - 1);
  setFormat(format);
}

double RichEditTextBox::fontSize() {
  CHARFORMATW format = emptyFormat(CFM_SIZE);
  tell(EM_GETCHARFORMAT, SCF_DEFAULT, &format);
  return static_cast<double>(format.yHeight) / kTwipsPerPoint;
}

void RichEditTextBox::setFontSize(double points) {
  CHARFORMATW format = emptyFormat(CFM_SIZE);
  format.yHeight = static_cast<LONG>(points * kTwipsPerPoint);
  setFormat(format);
}

// Of the text that is there, and of what comes.
void RichEditTextBox::setFormat(const CHARFORMATW& format) {
  tell(EM_SETCHARFORMAT, SCF_DEFAULT, &format);
  tell(EM_SETCHARFORMAT, SCF_ALL, &format);
}

void RichEditTextBox::setLocked(bool locked) { tell(EM_SETREADONLY, locked ? TRUE : FALSE); }

bool RichEditTextBox::saveToFile(const std::wstring& path) {
  std::ofstream file(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
  file << inSystemCodePage(text());
  file.close();
  return !file.fail();
}

void RichEditTextBox::refresh() {
  if (control_ != nullptr) RedrawWindow(control_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

}  // namespace corvid
