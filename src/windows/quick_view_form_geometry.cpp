// The form's place and size, in twips outside and in pixels at the system.
#include "windows/quick_view_form.h"
#include "windows/twips.h"

namespace corvid {
namespace {

// The system keeps it from the corner of the work area, not of the monitor.
RECT restoredBounds(HWND window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window, &placement);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
  OffsetRect(&placement.rcNormalPosition, monitor.rcWork.left - monitor.rcMonitor.left,
             monitor.rcWork.top - monitor.rcMonitor.top);
  return placement.rcNormalPosition;
}

RECT pixelBounds(HWND window) {
  if (IsIconic(window) != FALSE) return restoredBounds(window);
  RECT bounds{};
  GetWindowRect(window, &bounds);
  return bounds;
}

}  // namespace

Rectangle QuickViewForm::bounds() {
  make();
  const RECT pixels = pixelBounds(window_);
  const int dots = dotsPerInch(window_);
  return {toTwips(pixels.left, dots), toTwips(pixels.top, dots),
          toTwips(pixels.right - pixels.left, dots), toTwips(pixels.bottom - pixels.top, dots)};
}

void QuickViewForm::setBounds(const Rectangle& bounds) {
  make();
  if (window_ == nullptr || IsIconic(window_) != FALSE) return;
  const int dots = dotsPerInch(window_);
  SetWindowPos(window_, nullptr, toPixels(bounds.left, dots), toPixels(bounds.top, dots),
               toPixels(bounds.width, dots), toPixels(bounds.height, dots),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

double QuickViewForm::Left() { return bounds().left; }

void QuickViewForm::setLeft(double left) {
  Rectangle next = bounds();
  next.left = left;
  setBounds(next);
}

double QuickViewForm::Top() { return bounds().top; }

void QuickViewForm::setTop(double top) {
  Rectangle next = bounds();
  next.top = top;
  setBounds(next);
}

double QuickViewForm::Width() { return bounds().width; }

void QuickViewForm::setWidth(double width) {
  Rectangle next = bounds();
  next.width = width;
  setBounds(next);
}

double QuickViewForm::Height() { return bounds().height; }

void QuickViewForm::setHeight(double height) {
  Rectangle next = bounds();
  next.height = height;
  setBounds(next);
}

// A window below its least size takes it, and comes here again with it.
void QuickViewForm::fit() {
  const Rectangle now = bounds();
  const int dots = dotsPerInch(window_);
  const QuickViewLayout layout = view_.resize(now.width, now.height);
  if (toPixels(layout.width, dots) != toPixels(now.width, dots) ||
      toPixels(layout.height, dots) != toPixels(now.height, dots)) {
    setBounds({now.left, now.top, layout.width, layout.height});
    return;
  }
  placeControls(window_, layout, dots);
}

void QuickViewForm::limitSize(MINMAXINFO& limits) const {
  const int dots = dotsPerInch(window_);
  limits.ptMinTrackSize = {toPixels(kLeastWidth, dots), toPixels(kLeastHeight, dots)};
}

void QuickViewForm::takeResolution(const RECT& suggested) {
  dress_.put(window_);
  SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace corvid
