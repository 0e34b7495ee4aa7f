// The seams from the preview window's behaviour to the window itself and to the host behind it.
#pragma once

#include <cstdint>
#include <string>

namespace corvid {

// What the behaviour does to the window, beyond its text box. One thread.
class QuickViewWindow {
 public:
  virtual ~QuickViewWindow() = default;

  // Takes the window from the screen and ends its modal showing, if any. The controls keep their
  // contents until the object goes, so that a later showing finds them.
  virtual void hide() = 0;

  // The text of the margin entry (Text2).
  [[nodiscard]] virtual std::wstring marginText() = 0;
  virtual void setMarginText(const std::wstring& text) = 0;
  virtual void focusMargin() = 0;
};

// The host that the window raises its event to.
class ClickListener {
 public:
  virtual ~ClickListener() = default;
  // Raises ReportClicked with the clicked line's text and the caret's column in it, cancel handed
  // over as false. True when a handler set cancel. Throws nothing.
  [[nodiscard]] virtual bool raiseReportClicked(const std::wstring& line, std::int32_t column) = 0;
};

// An object of the host's that is told about clicked lines.
class NotifyTarget {
 public:
  virtual ~NotifyTarget() = default;
  // May throw any std::exception; the caller passes over it.
  virtual void ReportClicked(const std::wstring& line, std::int32_t column) = 0;
};

}  // namespace corvid
