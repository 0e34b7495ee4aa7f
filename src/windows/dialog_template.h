// Descriptions of dialogs, written by code.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace corvid {

// Positions and sizes are dialog units.
struct DialogItem {
  int id = 0;
  const wchar_t* windowClass = L"";
  std::wstring text;
  DWORD style = 0;  // WS_CHILD and WS_VISIBLE are understood
  DWORD extendedStyle = 0;
  RECT place{};  // left, top, right, bottom
};

struct DialogFrame {
  std::wstring title;
  DWORD style = 0;  // with DS_SETFONT the font is the system's dialog font, 8 points
  SIZE size{};
};

// In the form that the system's calls for dialogs take. The items' order is their tab order.
class DialogTemplate {
 public:
  DialogTemplate(const DialogFrame& frame, const std::vector<DialogItem>& items);

  [[nodiscard]] const DLGTEMPLATE* get() const;

 private:
  void addWord(WORD word) { words_.push_back(word); }
  void addLong(DWORD value);
  void addText(const std::wstring& text);
  void addItem(const DialogItem& item);

  std::vector<WORD> words_;  // the allocator aligns it as the system wants it
};

}  // namespace corvid
