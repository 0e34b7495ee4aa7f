#include "windows/dialog_template.h"

namespace corvid {
namespace {

constexpr WORD kTextSize = 8;  // points
constexpr const wchar_t* kFontName = L"MS Shell Dlg";

WORD toWord(LONG value) { return static_cast<WORD>(value); }

}  // namespace

DialogTemplate::DialogTemplate(const DialogFrame& frame, const std::vector<DialogItem>& items) {
  addLong(frame.style);
  addLong(0);
  addWord(static_cast<WORD>(items.size()));
  for (const LONG value : {LONG{0}, LONG{0}, frame.size.cx, frame.size.cy}) addWord(toWord(value));
  addText(L"");  // no menu
  addText(L"");  // the system's own class
  addText(frame.title);
  if ((frame.style & DS_SETFONT) != 0) {
    addWord(kTextSize);
    addText(kFontName);
  }
  for (const DialogItem& item : items) addItem(item);
}

const DLGTEMPLATE* DialogTemplate::get() const {
  return reinterpret_cast<const DLGTEMPLATE*>(words_.data());
}

void DialogTemplate::addLong(DWORD value) {
  addWord(LOWORD(value));
  addWord(HIWORD(value));
}

void DialogTemplate::addText(const std::wstring& text) {
  for (const wchar_t character : text) addWord(character);
  addWord(0);
}

void DialogTemplate::addItem(const DialogItem& item) {
  if (words_.size() % 2 != 0) addWord(0);  // items begin at four bytes
  addLong(item.style | WS_CHILD | WS_VISIBLE);
  addLong(item.extendedStyle);
  const RECT& place = item.place;
  for (const LONG value :
       {place.left, place.top, place.right - place.left, place.bottom - place.top}) {
    addWord(toWord(value));
  }
  addWord(static_cast<WORD>(item.id));
  addText(item.windowClass);
  addText(item.text);
  addWord(0);  // no data of its own
}

}  // namespace corvid
