#include "windows/gdi_report_printer.h"

#include <algorithm>
#include <utility>

namespace corvid {
namespace {

constexpr double kLeastFontSize = 0.5;  // points

}  // namespace

GdiReportPrinter::GdiReportPrinter(PrinterOpener open, std::function<std::wstring()> title)
    : open_(std::move(open)), title_(std::move(title)) {}

void GdiReportPrinter::open(ContextKind kind) {
  PrinterDevice opened(open_(kind));
  font_.size = opened.select(font_);
  device_.emplace(std::move(opened));
}

PrinterDevice& GdiReportPrinter::device() {
  if (!device_) open(ContextKind::Measures);
  return *device_;
}

PrintJob& GdiReportPrinter::job() {
  if (!job_) {
    device_.reset();  // the default printer may be another one now, or have come back
    open(ContextKind::Prints);
    job_.emplace(device_->context(), title_());
  }
  return *job_;
}

ScaleMode GdiReportPrinter::scaleMode() {
  device();
  return ScaleMode::Twips;
}

double GdiReportPrinter::scaleWidth() { return device().width(); }

double GdiReportPrinter::scaleHeight() { return device().height(); }

double GdiReportPrinter::textWidth(std::wstring_view text) { return device().textWidth(text); }

double GdiReportPrinter::textHeight(std::wstring_view) { return device().lineHeight(); }

bool GdiReportPrinter::canOpen() {
  try {
    device();
    return true;
  } catch (const PrinterError&) {
    return false;
  }
}

void GdiReportPrinter::apply(FontChoice next) {
  if (canOpen()) next.size = device_->select(next);
  font_ = std::move(next);
}

void GdiReportPrinter::setFontName(const std::wstring& name) {
  apply({name, font_.size, font_.bold, font_.italic});
}

void GdiReportPrinter::setFontSize(double points) {
  if (!(points > 0 && points <= kGreatestFontSize)) throw PrinterError("CreateFont");
  const double size = std::max(toHalfPoint(points), kLeastFontSize);
  apply({font_.name, size, font_.bold, font_.italic});
}

void GdiReportPrinter::setFontBold(bool bold) {
  apply({font_.name, font_.size, bold, font_.italic});
}

void GdiReportPrinter::setFontItalic(bool italic) {
  apply({font_.name, font_.size, font_.bold, italic});
}

std::wstring GdiReportPrinter::deviceName() { return device().name(); }

void GdiReportPrinter::printLine(std::wstring_view text, LineEnd end) { job().print(text, end); }

void GdiReportPrinter::newPage() { job().newPage(); }

void GdiReportPrinter::endDocument() {
  if (!job_) return;
  job_->finish();
  closeDevice();
}

void GdiReportPrinter::abortDocument() { closeDevice(); }

void GdiReportPrinter::release() noexcept {
  if (!job_) device_.reset();
}

void GdiReportPrinter::closeDevice() noexcept {
  job_.reset();
  device_.reset();
}

}  // namespace corvid
