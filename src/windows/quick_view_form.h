// lfQuickView as a window of the system: forwards what its user does, and moves its controls.
#pragma once

#include "preview/quick_view.h"
#include "windows/form_controls.h"
#include "windows/gdi_report_printer.h"
#include "windows/modal_loop.h"
#include "windows/report_dialogs.h"
#include "windows/report_files.h"
#include "windows/rich_edit_text_box.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

namespace corvid {

// What the form tells the object that a host drives it through. Held by the form for as long as it
// lives: whatever it holds in turn, the library's code for one, stays with it.
class FormEvents : public ClickListener {
 public:
  // The form comes to the screen, or leaves it. An object that must live while its window is
  // visible holds itself between the two; the form may go in hidden().
  virtual void shown() = 0;
  virtual void hidden() = 0;
};

// A visible form holds itself; hidden, it goes with its last owner. The system's window and
// controls are made, hidden, when the first of them is needed, and keep their contents while
// hidden. Should the system destroy the window, as with its owner, the form counts as hidden and
// makes a new one with the same text, caption, place and screen font when needed. Members that need
// a window throw out of memory (7) where the system makes none.
// All members belong to the thread that made the form.
class QuickViewForm : public std::enable_shared_from_this<QuickViewForm>, private QuickViewWindow {
 public:
  // Opens no printer.
  [[nodiscard]] static std::shared_ptr<QuickViewForm> create(
      const Settings& settings, std::shared_ptr<FormEvents> events,
      const PrinterOpener& openPrinter = openDefaultPrinter, FailureTrace trace = {});
  QuickViewForm(const QuickViewForm&) = delete;
  QuickViewForm& operator=(const QuickViewForm&) = delete;
  ~QuickViewForm() override;

  // Its members may be used whether the form was shown or not.
  [[nodiscard]] QuickView& view() { return view_; }

  // Moves the added lines into the text box and comes to the screen. Modal: the owner and the
  // thread's active window are disabled until the form is hidden, which is when it returns; a form
  // that is already visible raises error 400. Modeless: a visible form comes to the front, restored
  // if it was minimised. Where the process has no interactive desktop it returns at once, as if
  // the form had been closed. The owner's
  // outermost window stays behind the form; null, or what is no other window, is no owner. A modal
  // form without one takes the active window.
  void Show(bool modal, HWND owner);
  void Hide() { hide(); }

  [[nodiscard]] bool Visible() const { return visible_; }
  // True shows the form modelessly, without an owner.
  void setVisible(bool visible);
  [[nodiscard]] std::wstring Caption() const { return caption_; }
  void setCaption(const std::wstring& caption);

  // The outer rectangle on the screen, in twips at the monitor's resolution; of a minimised window
  // the one to which it will be restored. Setting one moves or sizes the window at once, never
  // below its least size; a minimised window stays as it is.
  [[nodiscard]] double Left();
  void setLeft(double left);
  [[nodiscard]] double Top();
  void setTop(double top);
  [[nodiscard]] double Width();
  void setWidth(double width);
  [[nodiscard]] double Height();
  void setHeight(double height);

  [[nodiscard]] HWND hWnd();

 private:
  QuickViewForm(const Settings& settings, std::shared_ptr<FormEvents> events,
                const PrinterOpener& openPrinter, FailureTrace trace);

  void hide() override;
  [[nodiscard]] std::wstring marginText() override;
  void setMarginText(const std::wstring& text) override;
  void focusMargin() override;

  void make();
  void dressUp();
  void place();
  void centre();
  void appear(HWND owner);
  void showModal(HWND owner);
  void leaveScreen();
  void windowGone();
  [[nodiscard]] HWND dialogOwner() const { return visible_ ? window_ : nullptr; }

  [[nodiscard]] Rectangle bounds();
  void setBounds(const Rectangle& bounds);
  void fit();
  void limitSize(MINMAXINFO& limits) const;
  void takeResolution(const RECT& suggested);

  // The events of the system. True where the form used it up.
  static INT_PTR CALLBACK received(HWND window, UINT message, WPARAM wide, LPARAM data);
  bool onMessage(UINT message, WPARAM wide, LPARAM data);
  bool onCommand(int control, int notification);
  bool onNotify(const NMHDR& notification);
  static LRESULT CALLBACK controlReceived(HWND control, UINT message, WPARAM wide, LPARAM data,
                                          UINT_PTR id, DWORD_PTR owner);
  LRESULT onControl(HWND control, UINT message, WPARAM wide, LPARAM data);
  bool onKey(HWND control, int key);
  void onWheel(int delta);
  void onTextReleased();
  void onFocusLost(HWND control, HWND gainsFocus);

  std::shared_ptr<FormEvents> events_;
  HWND window_ = nullptr;
  bool visible_ = false;
  bool pressedInText_ = false;
  int wheel_ = 0;  // what was turned with Ctrl and is no whole notch yet
  std::wstring caption_ = kQuickViewCaption;
  std::wstring keptText_;  // of a window that the system destroyed
  std::optional<Rectangle> keptBounds_;
  ModalLoop* loop_ = nullptr;  // of the modal showing, while it runs
  std::shared_ptr<QuickViewForm> self_;
  FormDress dress_;
  RichEditTextBox box_;
  GdiReportPrinter printer_;
  WindowsReportDialogs dialogs_;
  WindowsReportFiles files_;
  QuickView view_;
};

}  // namespace corvid
