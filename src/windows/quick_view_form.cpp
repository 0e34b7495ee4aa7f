// The form's life: made, shown, hidden, gone.
#include "windows/quick_view_form.h"

#include "basic/run_time_error.h"
#include "windows/message_box.h"
#include "windows/twips.h"
#include "windows/window_text.h"

#include <windows.h>
// Needs windows.h first.
#include <commctrl.h>

#include <utility>
#include <vector>

namespace corvid {
namespace {

constexpr std::int32_t kAlreadyShown = 400;

RunTimeError alreadyShown() {
  return {kAlreadyShown, L"", L"Form already displayed; can't show modally"};
}

}  // namespace

std::shared_ptr<QuickViewForm> QuickViewForm::create(const Settings& settings,
                                                     std::shared_ptr<FormEvents> events,
                                                     const PrinterOpener& openPrinter,
                                                     FailureTrace trace) {
  return std::shared_ptr<QuickViewForm>(
      new QuickViewForm(settings, std::move(events), openPrinter, std::move(trace)));
}

QuickViewForm::QuickViewForm(const Settings& settings, std::shared_ptr<FormEvents> events,
                             const PrinterOpener& openPrinter, FailureTrace trace)
    : events_(std::move(events)),
      box_([this] { make(); }),
      printer_(openPrinter, [this] { return caption_; }),
      dialogs_([this] { return dialogOwner(); }, openPrinter),
      view_(settings, {*this, box_, printer_, dialogs_, files_, *events_, std::move(trace)}) {}

QuickViewForm::~QuickViewForm() {
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, DWLP_USER, 0);
  DestroyWindow(window_);
}

void QuickViewForm::make() {
  if (window_ != nullptr) return;
  if (richEditClass() == nullptr) throw outOfMemory();
  const DialogTemplate form = describeForm();
  window_ = CreateDialogIndirectParamW(nullptr, form.get(), nullptr, received,
                                       reinterpret_cast<LPARAM>(this));
  if (window_ == nullptr) throw outOfMemory();
  SetWindowTextW(window_, caption_.c_str());
  box_.attach(windowOf(window_, Control::Text1));
  dressUp();
  view_.load();
  box_.setText(std::exchange(keptText_, {}));
  place();
}

void QuickViewForm::dressUp() {
  dress_ = {};
  dress_.put(window_);
  // Shown from the start: keys reach the controls whatever loop the host runs.
  SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  for (const ControlText& text : controlTexts()) {
    SetWindowSubclass(windowOf(window_, text.control), controlReceived, 0,
                      reinterpret_cast<DWORD_PTR>(this));
  }
}

void QuickViewForm::place() {
  if (const auto kept = std::exchange(keptBounds_, std::nullopt)) {
    setBounds(*kept);
  } else {
    centre();
  }
}

// In the work area of the monitor on which the host stands.
void QuickViewForm::centre() {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  auto* const host = GetActiveWindow();
  GetMonitorInfoW(MonitorFromWindow(host, MONITOR_DEFAULTTOPRIMARY), &monitor);
  const int dots = dotsPerInch(window_);
  const RECT& area = monitor.rcWork;
  const double left = toTwips(area.left + area.right, dots) - kLeastWidth;
  const double top = toTwips(area.top + area.bottom, dots) - kInitialHeight;
  setBounds({left / 2, top / 2, kLeastWidth, kInitialHeight});
}

void QuickViewForm::Show(bool modal, HWND owner) {
  if (visible_) {
    if (modal) throw alreadyShown();
    if (IsIconic(window_) != FALSE) ShowWindow(window_, SW_RESTORE);
    SetForegroundWindow(window_);
    return;
  }
  make();
  view_.showing();
  if (!hasInteractiveDesktop()) return;
  auto* const root = GetAncestor(owner, GA_ROOT);
  auto* const behind = root != window_ ? root : nullptr;
  if (modal) {
    showModal(behind);
  } else {
    appear(behind);
  }
}

void QuickViewForm::setVisible(bool visible) {
  if (!visible) {
    hide();
  } else if (!visible_) {
    Show(false, nullptr);
  }
}

void QuickViewForm::appear(HWND owner) {
  SetWindowLongPtrW(window_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
  visible_ = true;
  self_ = shared_from_this();
  events_->shown();
  ShowWindow(window_, IsIconic(window_) != FALSE ? SW_RESTORE : SW_SHOW);
  // The launcher of the process may have a say in its first showing.
  if (IsWindowVisible(window_) == FALSE) ShowWindow(window_, SW_SHOW);
  SetForegroundWindow(window_);
}

void QuickViewForm::showModal(HWND owner) {
  const auto alive = shared_from_this();
  auto* const active = GetActiveWindow();
  ModalLoop loop(std::vector<HWND>{owner, active});
  loop_ = &loop;
  appear(owner != nullptr ? owner : active);
  loop.run();
  if (loop_ == &loop) hide();
}

void QuickViewForm::hide() {
  if (!visible_) return;
  const auto alive = shared_from_this();
  leaveScreen();
}

// The host's windows are enabled first: else hiding would activate another program's.
void QuickViewForm::leaveScreen() {
  visible_ = false;
  if (loop_ != nullptr) std::exchange(loop_, nullptr)->end();
  if (window_ != nullptr) {
    ShowWindow(window_, SW_HIDE);
    SetWindowLongPtrW(window_, GWLP_HWNDPARENT, 0);
  }
  const auto self = std::move(self_);
  const auto events = events_;
  events->hidden();
}

void QuickViewForm::windowGone() {
  window_ = nullptr;
  box_.attach(nullptr);
  if (visible_) leaveScreen();
}

std::wstring QuickViewForm::marginText() {
  make();
  return windowText(windowOf(window_, Control::Text2));
}

void QuickViewForm::setMarginText(const std::wstring& text) {
  make();
  SetWindowTextW(windowOf(window_, Control::Text2), text.c_str());
}

void QuickViewForm::focusMargin() {
  make();
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(windowOf(window_, Control::Text2)),
               TRUE);
}

void QuickViewForm::setCaption(const std::wstring& caption) {
  caption_ = caption;
  if (window_ != nullptr) SetWindowTextW(window_, caption.c_str());
}

HWND QuickViewForm::hWnd() {
  make();
  return window_;
}

}  // namespace corvid
