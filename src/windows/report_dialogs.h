// The boxes and dialogs of a report window, as the system has them.
#pragma once

#include "preview/report_dialogs.h"
#include "windows/printer_device.h"

#include <windows.h>

#include <functional>

namespace corvid {

// Dialogs belong to the window that `owner` names or, where that is null, to the thread's active
// one. The font dialog needs a printer: without one it returns as if cancelled.
class WindowsReportDialogs : public ReportDialogs {
 public:
  explicit WindowsReportDialogs(std::function<HWND()> owner,
                                PrinterOpener openPrinter = openDefaultPrinter);

  void message(const std::wstring& text, const std::wstring& title, MessageIcon icon) override;
  [[nodiscard]] Answer ask(const std::wstring& text, const std::wstring& title) override;
  [[nodiscard]] std::wstring input(const std::wstring& prompt, const std::wstring& title,
                                   const std::wstring& initial) override;
  [[nodiscard]] std::optional<FontChoice> chooseFont(const FontChoice& initial) override;
  [[nodiscard]] std::optional<std::wstring> chooseSaveFile(const SaveRequest& request) override;

 private:
  [[nodiscard]] HWND owner() const;

  std::function<HWND()> owner_;
  PrinterOpener openPrinter_;
};

}  // namespace corvid
