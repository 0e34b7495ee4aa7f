// How a report's width finds its font and its lines per page on the printer.
#include "basic/conversions.h"
#include "basic/currency.h"
#include "basic/run_time_error.h"
#include "preview/report.h"
#include "preview/report_metrics.h"

namespace corvid {
namespace {

constexpr int kAllowance = 6;              // characters that must fit beside the report's width
constexpr double kUsableShare = 0.98;      // of the printable width
constexpr double kSmallestFont = 4;        // points
constexpr std::int64_t kHalfPoint = 5000;  // in units of currency
constexpr double kSpareLines = 3;          // of each page

// Sizes step as currency does, so that half points stay exact.
double halfPointBelow(double size) {
  return Currency::fromUnits(Currency::fromDouble(size).units() - kHalfPoint).toDouble();
}

// Gives the device back where no job needs it.
class Measuring {
 public:
  explicit Measuring(ReportPrinter& printer) : printer_(printer) {}
  Measuring(const Measuring&) = delete;
  Measuring& operator=(const Measuring&) = delete;
  ~Measuring() { printer_.release(); }

 private:
  ReportPrinter& printer_;
};

}  // namespace

void Report::SetPrintFontSize(std::int16_t size) {
  if (busy_) {
    waiting_.emplace_back([this, size] { SetPrintFontSize(size); });
    return;
  }
  settle();
  printFontFixed_ = true;
  const Measuring measuring(printer_);
  try {
    printer_.setFontSize(size);
  } catch (const PrinterError& error) {
    noteFailure(error);
  }
}

bool Report::SetReportWidth(std::int16_t width) {
  if (busy_) {
    waiting_.emplace_back([this, width] { SetReportWidth(width); });
    return false;
  }
  owesFitting_ = false;
  return fitWidth(width);
}

bool Report::fitWidth(std::int16_t width) {
  reportWidth_ = width;
  if (printFontFixed_) return false;
  const Measuring measuring(printer_);
  try {
    return fitToPrinter();
  } catch (const PrinterError& error) {
    noteFailure(error);
    return false;
  }
}

bool Report::fitToPrinter() {
  const double usable = printer_.scaleWidth() * ScaleToInches(printer_.scaleMode()) * kUsableShare;
  printer_.setFontName(fontName_);
  printer_.setFontSize(maxFontSize_);
  printer_.setFontBold(false);
  shrinkFontToWidth(usable);
  correctFontSize();
  if (printer_.fontSize() <= kSmallestFont && !refitsSmallFont()) return false;
  linesPerPage_ = fittingLines();
  return true;
}

void Report::shrinkFontToWidth(double usable) {
  const std::int16_t characters = narrowToInt16(reportWidth_ + kAllowance);
  // A scale mode that measures nothing fits nothing, though the text too is 0 inches wide in it.
  while (usable <= 0 || usable < TextWidthInches(printer_, characters)) {
    const double size = printer_.fontSize();
    if (size <= kSmallestFont) return;
    printer_.setFontSize(halfPointBelow(size));
    if (printer_.fontSize() >= size) return;  // the device offers no smaller one
  }
}

void Report::correctFontSize() {
  if (fontOffset_ != 0) printer_.setFontSize(printer_.fontSize() + fontOffset_);
  if (fontFactor_ != 1.0F) {
    printer_.setFontSize(printer_.fontSize() * static_cast<double>(fontFactor_));
  }
}

// It is No that goes on to the lines per page: hosts and users know the question this way round.
bool Report::refitsSmallFont() {
  dialogs_.message(
      L"ADVERTENCIA: El reporte podría no imprimirse completo con su actual configuración "
      L"de impresión",
      L"", MessageIcon::None);
  return dialogs_.ask(L"Desea emitirlo, a pesar de ello", L"") == Answer::No;
}

std::int16_t Report::fittingLines() {
  const double lineHeight = printer_.textHeight(L"N");
  if (lineHeight == 0) throw divisionByZero();
  return toInt16((printer_.scaleHeight() / lineHeight) - kSpareLines);
}

}  // namespace corvid
