// The printer of reports over the system's graphics calls.
#pragma once

#include "preview/report_printer.h"
#include "windows/print_job.h"
#include "windows/printer_device.h"

#include <optional>
#include <string>

namespace corvid {

// Points; what the system's fonts reach.
inline constexpr double kGreatestFontSize = 2160;

// Measures in twips. The printer is opened when it is first needed, and anew for each job, so that
// a job goes to what is the default printer then; it is given back at the job's end, and where
// there is none it is looked for again at the next call. Sizes are kept in half points, and those
// above kGreatestFontSize throw.
class GdiReportPrinter : public ReportPrinter {
 public:
  explicit GdiReportPrinter(PrinterOpener open = openDefaultPrinter);

  [[nodiscard]] ScaleMode scaleMode() override;
  [[nodiscard]] double scaleWidth() override;
  [[nodiscard]] double scaleHeight() override;
  [[nodiscard]] double textWidth(std::wstring_view text) override;
  [[nodiscard]] double textHeight(std::wstring_view text) override;

  [[nodiscard]] std::wstring fontName() override;
  void setFontName(const std::wstring& name) override;
  [[nodiscard]] double fontSize() override;
  void setFontSize(double points) override;
  [[nodiscard]] bool fontBold() override;
  void setFontBold(bool bold) override;
  [[nodiscard]] bool fontItalic() override;
  void setFontItalic(bool italic) override;

  [[nodiscard]] std::wstring deviceName() override;

  void printLine(std::wstring_view text, LineEnd end) override;
  void newPage() override;
  void endDocument() override;
  void abortDocument() override;

 private:
  PrinterDevice& device();
  PrintJob& job();
  const FontChoice& font();
  void apply(FontChoice next);
  void closeDevice();

  PrinterOpener open_;
  FontChoice font_{L"Courier New", 10, false, false};
  std::optional<PrinterDevice> device_;
  std::optional<PrintJob> job_;  // after the device, whose context it uses
};

}  // namespace corvid
