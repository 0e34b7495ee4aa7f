// The seam to the report preview, where it stands in for the printer or shows the trace.
#pragma once

#include "platform/settings.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvid {

class ReportView {
 public:
  virtual ~ReportView() = default;
  virtual void SetReportWidth(std::int16_t width) = 0;
  virtual void Add(const std::wstring& line) = 0;  // left-aligned
  virtual void showModal() = 0;
};

class ReportViews {
 public:
  virtual ~ReportViews() = default;
  // A view that reads its own settings by those readers.
  [[nodiscard]] virtual std::shared_ptr<ReportView> create(const Settings& settings) = 0;
};

}  // namespace corvid
