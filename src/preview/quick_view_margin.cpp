// The preview window's left-margin entry.
#include "preview/margin_entry.h"
#include "preview/quick_view.h"

namespace corvid {
namespace {

// Keeps a flag set for as long as it lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

void QuickView::takeMarginEntry() { report_.setLeftMargin(marginOf(seams_.window.marginText())); }

void QuickView::leaveMarginEntry() {
  if (checkingMargin_) return;
  const Raised checking(checkingMargin_);
  checkMarginEntry();
}

void QuickView::checkMarginEntry() {
  std::wstring entry = seams_.window.marginText();
  if (!IsValidNumber(entry) || entry.empty()) {
    seams_.dialogs.message(L"Por favor, introduzca un númeto valido",
                           L"PrinterFiscalCorvid (commAPI)", MessageIcon::Exclamation);
    seams_.window.focusMargin();
  }
  seams_.window.setMarginText(wholePart(entry));
}

void QuickView::stepMargin(int steps) {
  seams_.window.setMarginText(steppedMargin(seams_.window.marginText(), steps));
}

}  // namespace corvid
