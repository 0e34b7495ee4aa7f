// The printer of reports over the system's graphics calls.
#pragma once

#include "preview/report_printer.h"
#include "windows/print_job.h"
#include "windows/printer_device.h"

#include <functional>
#include <optional>
#include <string>

namespace corvid {

// Points; what the system's fonts reach.
inline constexpr double kGreatestFontSize = 2160;

// Measures in twips. The printer is opened when it is needed, and anew for each job, so that a job
// goes to what is the default printer then; release() and the job's end give it back. Sizes are
// kept in half points, and those above kGreatestFontSize throw.
class GdiReportPrinter : public ReportPrinter {
 public:
  // The title is asked for at the beginning of each job.
  GdiReportPrinter(PrinterOpener open, std::function<std::wstring()> title);

  [[nodiscard]] ScaleMode scaleMode() override;
  [[nodiscard]] double scaleWidth() override;
  [[nodiscard]] double scaleHeight() override;
  [[nodiscard]] double textWidth(std::wstring_view text) override;
  [[nodiscard]] double textHeight(std::wstring_view text) override;

  [[nodiscard]] std::wstring fontName() override { return font_.name; }
  void setFontName(const std::wstring& name) override;
  [[nodiscard]] double fontSize() override { return font_.size; }
  void setFontSize(double points) override;
  [[nodiscard]] bool fontBold() override { return font_.bold; }
  void setFontBold(bool bold) override;
  [[nodiscard]] bool fontItalic() override { return font_.italic; }
  void setFontItalic(bool italic) override;

  [[nodiscard]] std::wstring deviceName() override;

  void printLine(std::wstring_view text, LineEnd end) override;
  void newPage() override;
  void endDocument() override;
  void abortDocument() override;
  void release() noexcept override;

 private:
  PrinterDevice& device();
  [[nodiscard]] bool canOpen();
  void open(ContextKind kind);
  PrintJob& job();
  void apply(FontChoice next);
  void closeDevice() noexcept;

  PrinterOpener open_;
  std::function<std::wstring()> title_;
  FontChoice font_{L"Courier New", 10, false, false};
  std::optional<PrinterDevice> device_;
  std::optional<PrintJob> job_;  // after the device, whose context it uses
};

}  // namespace corvid
