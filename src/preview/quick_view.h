// lfQuickView: the behaviour of the preview window, with no window handle in it.
#pragma once

#include "platform/settings.h"
#include "preview/quick_view_controls.h"
#include "preview/quick_view_window.h"
#include "preview/report.h"
#include "preview/report_dialogs.h"
#include "preview/report_files.h"
#include "preview/report_printer.h"
#include "preview/report_text_box.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace corvid {

// The seams of one window. All outlive it.
struct QuickViewSeams {
  QuickViewWindow& window;
  ReportTextBox& box;
  ReportPrinter& printer;
  ReportDialogs& dialogs;
  ReportFiles& files;
  ClickListener& listener;
  FailureTrace trace;  // may be empty
};

// A virtual key code of the system, and what was held down with it. AltGr, which reaches programs
// as Ctrl and Alt together, is no control key: it writes characters.
struct KeyPress {
  int code = 0;
  bool control = false;
  bool shift = false;

  bool operator==(const KeyPress&) const = default;
};
inline constexpr int kEscapeKey = 27;
inline constexpr int kF3Key = 114;
inline constexpr int kPlusKeys[] = {107, 187};  // on the number pad, and among the letters
inline constexpr int kMinusKeys[] = {109, 189};

inline constexpr double kLeastScreenFont = 5;  // points
inline constexpr double kGreatestScreenFont = 23;

// One member for each thing that a user or the window's own life can do. Members that answer the
// user throw nothing; those of report(), which the host calls, may. A member may be called again
// from inside a dialog or from the host's handler. Made before its controls are: the text box and
// the margin entry are first touched by load(), LoadText or PrintListBox, and load() comes first,
// so the window makes its controls, hidden, when the first of them is asked for.
class QuickView {
 public:
  QuickView(const Settings& settings, const QuickViewSeams& seams);

  // Building and printing the report.
  [[nodiscard]] Report& report() { return report_; }
  // As Report::setLeftMargin; the margin entry then shows the margin.
  void setLeftMargin(std::int16_t margin);
  // The object to be told about clicked lines, held until it is replaced; none clears it.
  void SetNotify(std::shared_ptr<NotifyTarget> target) { notifyTarget_ = std::move(target); }

  // Once, when the controls were made: an empty text box in the screen font, without line wrap,
  // locked unless the setting "EditQView" lets the user edit, and the left margin in its entry.
  void load();
  // At each showing, before it, and when the window is activated.
  void showing();
  void activate();
  // When the outer size, in twips, has changed; not while the window is minimised. The window takes
  // the size in the answer and places its controls; the text box's right margin follows a wide one.
  [[nodiscard]] QuickViewLayout resize(double width, double height);

  // cbImprimir: takes the left margin from its entry (0 for what is no margin) and prints. What
  // prevents it is told.
  void print();
  // cbCerrar, and the window's close box: hides the window. While a job runs it asks first, and Yes
  // leaves both as they are; No stops the job.
  void close();
  // cbPrinterFonts: lets the user choose the printer's font, which fixes it; the printer takes it
  // when nothing is printed any more.
  void choosePrinterFont();
  // imgFontGrow and imgFontShrink, clicked or double-clicked: one point, between 5 and 23.
  void growScreenFont() { stepScreenFont(1); }
  void shrinkScreenFont() { stepScreenFont(-1); }
  void stepScreenFont(int points);
  // Command1: asks for a text and finds it.
  void search();
  // Finds from one after the selection on, from the top where that is the end of the text, and
  // says so when there is none. The text is kept for the next search.
  void FindText(const std::wstring& text);
  // Finds the last searched text before the selection, from the end where there is none.
  void findPrevious();
  // cbGuardar: asks for a file and saves the text to it. A file that cannot be written is told.
  void save();
  // A key pressed in the window, wherever the focus is: Escape hides, F3 finds the last text again,
  // with Shift backward; with Ctrl, F searches, P prints, S saves, + and - change the screen font.
  // True when the key was one of these and is used up.
  bool keyDown(const KeyPress& key);

  // The focus leaves the margin entry for another control. An entry that is no number is told and
  // gets the focus back; the entry then shows the whole part of its number, in every case. Calls
  // from inside, as when the message itself takes the focus, do nothing.
  void leaveMarginEntry();
  // UpDown1: adds to the margin entry's number, from 0 to 32767.
  void stepMargin(int steps);

  // A mouse button was released in the text box with nothing selected: tells the host which line
  // the caret is in, by the event and, unless a handler cancelled, by the object of SetNotify.
  void clickText();

 private:
  void tellClicked(const std::wstring& line, std::int32_t column);
  void tellNotFound();
  void warn(const std::wstring& text);
  [[nodiscard]] FontChoice printerFont();
  void copyToPrinter(const FontChoice& font);
  void checkMarginEntry();
  void takeMarginEntry();

  Settings settings_;
  QuickViewSeams seams_;
  Report report_;
  std::shared_ptr<NotifyTarget> notifyTarget_;
  std::wstring lastSearch_;
  std::wstring screenFontName_ = L"Courier New";
  double screenFontSize_ = 9;  // points
  bool controlsMade_ = false;
  bool checkingMargin_ = false;
};

}  // namespace corvid
