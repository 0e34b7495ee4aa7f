// What a printer answered, in words.
#pragma once

#include "tools/diagnostico/printer_check.h"
#include "tools/diagnostico/report.h"

#include <string>

namespace corvid {

// The words for what became of the status request: in one line.
[[nodiscard]] std::wstring statusWords(const PrinterAnswers& answers);

// Whether the printer answered undamaged, and told no error.
[[nodiscard]] bool isWell(const PrinterAnswers& answers);

// Tells status, times and counters; warns of a printer that is not well.
void tellPrinter(const PrinterAnswers& answers, DiagnosticReport& report);

// How the driver ends a read that asks for more than is there.
void tellManner(ReadManner manner, DiagnosticReport& report);

}  // namespace corvid
