// A report view, and whether it has lines that nobody was shown yet.
#pragma once

#include "platform/report_view.h"

#include <memory>
#include <string>

namespace corvid {

// Empty until it is made. One thread.
class PendingView {
 public:
  [[nodiscard]] bool isMade() const { return view_ != nullptr; }
  // A new view in the place of the one before; throws what its creation throws.
  ReportView& make(ReportViews& views, const Settings& settings) {
    view_ = views.create(settings);
    isPending_ = false;
    return *view_;
  }

  // To a view that was made.
  void Add(const std::wstring& line) {
    view_->Add(line);
    isPending_ = true;
  }
  // Nothing when it was not made.
  void showModal() {
    if (!view_) return;
    const auto shown = view_;  // lines and a new view may come while it is shown
    shown->showModal();
    if (shown == view_) isPending_ = false;
  }
  // Whether lines were added since it was last shown.
  [[nodiscard]] bool isPending() const { return isPending_; }

 private:
  std::shared_ptr<ReportView> view_;
  bool isPending_ = false;
};

}  // namespace corvid
