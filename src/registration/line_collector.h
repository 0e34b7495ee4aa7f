// The plain stand-in for the report preview: it keeps the lines and shows nothing.
#pragma once

#include "port/report_view.h"

#include <string>
#include <vector>

namespace corvid {

class LineCollector : public ReportView {
 public:
  void SetReportWidth(std::int16_t width) override { width_ = width; }
  void Add(const std::wstring& line) override { lines_.push_back(line); }
  void showModal() override {}

 private:
  std::int16_t width_ = 0;
  std::vector<std::wstring> lines_;
};

class LineCollectors : public ReportViews {
 public:
  [[nodiscard]] std::shared_ptr<ReportView> create() override {
    return std::make_shared<LineCollector>();
  }
};

}  // namespace corvid
