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
//
// Additions are gathered and handed to the control in one piece: before any other member, before a
// message that reads the control, wherever it comes from, and by a timer, which the system calls
// when the thread has nothing better to do; by itself at most ten times a second.
class RichEditTextBox : public ReportTextBox {
 public:
  // When a member needs the control and none is attached, it calls this, which may attach one.
  // Without a control the members do nothing and find an empty text.
  explicit RichEditTextBox(std::function<void()> makeControl);
  RichEditTextBox(const RichEditTextBox&) = delete;
  RichEditTextBox& operator=(const RichEditTextBox&) = delete;
  ~RichEditTextBox() override { attach(nullptr); }

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

  void setFont(const std::wstring& name, double points) override;

  [[nodiscard]] double rightMargin() override { return rightMargin_; }
  void setRightMargin(double twips) override { rightMargin_ = twips; }
  void setLocked(bool locked) override;

  void refresh() override;

  // How often gathered lines went to the control.
  [[nodiscard]] int handOvers() const { return handOvers_; }

 private:
  static LRESULT CALLBACK received(HWND control, UINT message, WPARAM wide, LPARAM data, UINT_PTR,
                                   DWORD_PTR box);
  void onMessage(UINT message, WPARAM wide);
  [[nodiscard]] bool mayHandOver(UINT message) const;
  void handOver();
  [[nodiscard]] LRESULT send(UINT message, WPARAM wide = 0, const void* data = nullptr);
  void tell(UINT message, WPARAM wide = 0, const void* data = nullptr);
  [[nodiscard]] LONG heldLength(DWORD flags);
  [[nodiscard]] std::wstring heldText(LONG from, LONG to);
  [[nodiscard]] LONG heldPosition(std::int32_t offset);
  [[nodiscard]] CHARRANGE heldSelection();
  void selectHeld(LONG from, LONG to);
  void scrollToLineStarts();
  void setPlainStyle();
  void setFormat(const CHARFORMATW& format);
  void setTabs(const std::wstring& fontName, double points);
  void applyTabs();

  std::function<void()> makeControl_;
  HWND control_ = nullptr;
  double rightMargin_ = 0;  // twips
  PARAFORMAT tabs_{};
  std::wstring gathered_;
  ULONGLONG lastHandOver_ = 0;  // the system's count of milliseconds
  int handOvers_ = 0;
};

}  // namespace corvid
