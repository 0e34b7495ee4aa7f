#include "windows/report_views.h"

#include "windows/quick_view_form.h"

namespace corvid {
namespace {

constexpr std::int32_t kLeft = 0;  // the alignment

class NoHost : public FormEvents {
 public:
  bool raiseReportClicked(const std::wstring&, std::int32_t) override { return false; }
  void shown() override {}
  void hidden() override {}
};

class FormView : public ReportView {
 public:
  explicit FormView(std::shared_ptr<QuickViewForm> form) : form_(std::move(form)) {}

  void SetReportWidth(std::int16_t width) override { form_->view().report().SetReportWidth(width); }
  void Add(const std::wstring& line) override { form_->view().report().Add(line, kLeft); }
  void showModal() override { form_->Show(true, nullptr); }

 private:
  std::shared_ptr<QuickViewForm> form_;
};

}  // namespace

std::shared_ptr<ReportView> WindowsReportViews::create(const Settings& settings) {
  return std::make_shared<FormView>(
      QuickViewForm::create(settings, std::make_shared<NoHost>(), openPrinter_));
}

}  // namespace corvid
