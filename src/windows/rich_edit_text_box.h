// The text box of reports over the system's rich edit control.
#pragma once

#include "preview/report_text_box.h"

#include <windows.h>
// Needs windows.h first.
#include <richedit.h>

#include <functional>
#include <string>

namespace corvid {

// The window class of the newest rich edit control of this system, loaded from the system's own
// folder and kept for the life of the process; null where there is none.
[[nodiscard]] const wchar_t* richEditClass();

// The control keeps a line end as one character; all members translate from what the control holds
// at that moment, so that text typed by the user counts too. Adding at the end translates nothing.
// The control takes plain text only and never wraps, wherever its right margin stands. It holds no
// NUL characters: they become blanks.
class RichEditTextBox : public ReportTextBox {
 public:
  // When a member needs the control and none is attached, it calls this, which may attach one.
  // Without a control the members do nothing and find an empty text.
  explicit RichEditTextBox(std::function<void()> makeControl);

  // Prepares a control of richEditClass() that is still empty. Null detaches.
  void attach(HWND control);

  [[nodiscard]] std::wstring text() override;
  void setText(const std::wstring& text) override;
  [[nodiscard]] std::int32_t length() override;
  void append(std::wstring_view text) override;

  [[nodiscard]] std::int32_t selectionStart() override;
  [[nodiscard]] std::int32_t selectionLength() override;
  void select(std::int32_t start, std::int32_t length) override;
  [[nodiscard]] bool find(const std::wstring& text, std::int32_t from) override;

  [[nodiscard]] std::wstring fontName() override;
  void setFontName(const std::wstring& name) override;
  [[nodiscard]] double fontSize() override;
  void setFontSize(double points) override;

  [[nodiscard]] double rightMargin() override { return rightMargin_; }
  void setRightMargin(double twips) override { rightMargin_ = twips; }
  void setLocked(bool locked) override;

  [[nodiscard]] bool saveToFile(const std::wstring& path) override;
  void refresh() override;

 private:
  [[nodiscard]] LRESULT send(UINT message, WPARAM wide = 0, const void* data = nullptr);
  void tell(UINT message, WPARAM wide = 0, const void* data = nullptr);
  [[nodiscard]] LONG heldLength(DWORD flags);
  [[nodiscard]] std::wstring heldText(LONG from, LONG to);
  [[nodiscard]] LONG heldPosition(std::int32_t offset);
  [[nodiscard]] CHARRANGE heldSelection();
  void selectHeld(LONG from, LONG to);
  void scrollToLineStarts();
  void setFormat(const CHARFORMATW& format);

  std::function<void()> makeControl_;
  HWND control_ = nullptr;
  double rightMargin_ = 0;  // twips
};

}  // namespace corvid
