#include "windows/report_views.h"

#include "basic/run_time_error.h"
#include "windows/quick_view_form.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace corvid {
namespace {

constexpr std::int32_t kLeft = 0;  // the alignment

class NoHost : public FormEvents {
 public:
  bool raiseReportClicked(const std::wstring&, std::int32_t) override { return false; }
  void shown() override {}
  void hidden() override {}
};

// Keeps its lines, and fits and pages them when it is first shown: until then no printer is asked.
class FormView : public ReportView {
 public:
  explicit FormView(std::shared_ptr<QuickViewForm> form) : form_(std::move(form)) {}

  void SetReportWidth(std::int16_t width) override { width_ = width; }
  void Add(const std::wstring& line) override {
    if (wasShown_) {
      addLine(line);
    } else {
      lines_.push_back(line);
    }
  }
  void showModal() override {
    if (!std::exchange(wasShown_, true)) {
      if (width_) report().SetReportWidth(*width_);
      for (const std::wstring& line : std::exchange(lines_, {})) addLine(line);
    }
    form_->Show(true, nullptr);
  }

 private:
  Report& report() { return form_->view().report(); }

  // Pages that cannot be counted any more begin anew.
  void addLine(const std::wstring& line) {
    try {
      report().Add(line, kLeft);
    } catch (const RunTimeError& error) {
      if (error.number() != overflow().number()) throw;
      report().SetNumeroPagina(1);
      report().Add(line, kLeft);
    }
  }

  std::shared_ptr<QuickViewForm> form_;
  std::optional<std::int16_t> width_;
  std::vector<std::wstring> lines_;
  bool wasShown_ = false;
};

}  // namespace

std::shared_ptr<ReportView> WindowsReportViews::create(const Settings& settings) {
  return std::make_shared<FormView>(
      QuickViewForm::create(settings, std::make_shared<NoHost>(), openPrinter_));
}

}  // namespace corvid
