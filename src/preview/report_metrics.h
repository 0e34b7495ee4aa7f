// Measures of a report's text on its printer, in inches.
#pragma once

#include "preview/report_printer.h"

#include <cstdint>

namespace corvid {

// Inches for each unit of a scale mode; 0 where the mode measures nothing (pixels, user-defined).
[[nodiscard]] double ScaleToInches(ScaleMode mode);

// The width of a string of that many letters "n" in the printer's font; error 5 below 0.
[[nodiscard]] double TextWidthInches(ReportPrinter& printer, std::int16_t count);

}  // namespace corvid
