// Report previews for test mode and the debug view.
#pragma once

#include "platform/report_view.h"
#include "windows/printer_device.h"

#include <memory>
#include <utility>

namespace corvid {

// Each view is a QuickViewForm without a host. Showing one that is visible throws error
// 400; where the process has no interactive desktop showing returns at once.
class WindowsReportViews : public ReportViews {
 public:
  explicit WindowsReportViews(PrinterOpener openPrinter = openDefaultPrinter)
      : openPrinter_(std::move(openPrinter)) {}

  [[nodiscard]] std::shared_ptr<ReportView> create(const Settings& settings) override;

 private:
  PrinterOpener openPrinter_;
};

}  // namespace corvid
