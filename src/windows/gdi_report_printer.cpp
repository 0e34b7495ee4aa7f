#include "windows/gdi_report_printer.h"

#include "preview/quick_view_controls.h"

#include <algorithm>
#include <utility>

namespace corvid {
namespace {

constexpr double kLeastFontSize = 0.5;  // points

}  // namespace

GdiReportPrinter::GdiReportPrinter(PrinterOpener open) : open_(std::move(open)) {}

PrinterDevice& GdiReportPrinter::device() {
  if (!device_) {
    PrinterDevice opened(open_());
    font_.size = opened.select(font_);
    device_.emplace(std::move(opened));
  }
  return *device_;
}

PrintJob& GdiReportPrinter::job() {
  if (!job_) {
    device_.reset();  // the default printer may be another one now, or have come back
    job_.emplace(device().context(), kQuickViewCaption);
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

const FontChoice& GdiReportPrinter::font() {
  device();
  return font_;
}

void GdiReportPrinter::apply(FontChoice next) {
  next.size = device().select(next);
  font_ = std::move(next);
}

std::wstring GdiReportPrinter::fontName() { return font().name; }

void GdiReportPrinter::setFontName(const std::wstring& name) {
  apply({name, font_.size, font_.bold, font_.italic});
}

double GdiReportPrinter::fontSize() { return font().size; }

void GdiReportPrinter::setFontSize(double points) {
  if (!(points > 0 && points <= kGreatestFontSize)) throw PrinterError("no such font size");
  const double size = std::max(toHalfPoint(points), kLeastFontSize);
  apply({font_.name, size, font_.bold, font_.italic});
}

bool GdiReportPrinter::fontBold() { return font().bold; }

void GdiReportPrinter::setFontBold(bool bold) {
  apply({font_.name, font_.size, bold, font_.italic});
}

bool GdiReportPrinter::fontItalic() { return font().italic; }

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

void GdiReportPrinter::closeDevice() {
  job_.reset();
  device_.reset();
}

}  // namespace corvid
