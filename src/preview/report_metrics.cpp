#include "preview/report_metrics.h"

#include "basic/run_time_error.h"

#include <string>

namespace corvid {

double ScaleToInches(ScaleMode mode) {
  switch (mode) {
    case ScaleMode::Twips:
    case ScaleMode::Points:  // hosts have always seen points measured as twips
      return 1.0 / 1440;
    case ScaleMode::Characters:
      return 120.0 / 1440;
    case ScaleMode::Inches:
      return 1;
    case ScaleMode::Millimetres:
      return 1 / 25.4;
    case ScaleMode::Centimetres:
      return 1 / 2.54;
    case ScaleMode::User:
    case ScaleMode::Pixels:
      break;
  }
  return 0;
}

double TextWidthInches(ReportPrinter& printer, std::int16_t count) {
  if (count < 0) throw invalidProcedureCall();
  const std::wstring letters(static_cast<std::size_t>(count), L'n');
  return printer.textWidth(letters) * ScaleToInches(printer.scaleMode());
}

}  // namespace corvid
