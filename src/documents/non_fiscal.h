// Housekeeping of a printer: non-fiscal text, reports, programmed lines, clock, cashier, reprints.
#pragma once

#include "basic/date.h"
#include "basic/decimal.h"
#include "session/printer_session.h"

#include <cstdint>
#include <functional>
#include <string>

namespace corvid {

// Each sends one command and returns Execute's result, unless it says otherwise. Nothing is
// checked before sending; numbers are rounded half away from zero, zero-padded and never cut.

// A line of a non-fiscal document, cut to 40 characters; `close` also ends the document.
std::int16_t PrintNoFiscal(PrinterSession& session, const std::wstring& text, bool close);
// A daily report: range and kind are the printer's own letters.
std::int16_t ReporteDiario(PrinterSession& session, const std::wstring& range,
                           const std::wstring& kind);

// Program a line above or below every document, centred to 40 characters. A header's line number
// comes as its text; a footer's is sent as the character with the code number + 64, and error 5 is
// thrown where that is no byte.
std::int16_t SetHeader(PrinterSession& session, const std::wstring& lineNumber,
                       const std::wstring& text);
std::int16_t SetFooter(PrinterSession& session, std::int32_t lineNumber, const std::wstring& text);

// Set the printer's clock. Error 5 outside the years 100 to 9999.
std::int16_t SetDate(PrinterSession& session, Date date);
std::int16_t SetTime(PrinterSession& session, Date time);

std::int16_t Login(PrinterSession& session, const Decimal& cashier);
std::int16_t Logoff(PrinterSession& session);
std::int16_t StartTraining(PrinterSession& session);
std::int16_t EndTraining(PrinterSession& session);
std::int16_t setFlag(PrinterSession& session, const Decimal& flag, const Decimal& value);

// A limit of a range of documents, which the command tells to be a date or a number: only the one
// that is needed is asked for, and what that throws crosses before anything is sent.
struct ReprintLimit {
  std::function<Date()> date;
  std::function<Decimal()> number;
};

// Prints stored documents again, from limit to limit. Commands from "a" to "z" in the order of
// character codes take dates, all others numbers. The session's outcome tells what came of it.
void reimprimirDocumentos(PrinterSession& session, const std::wstring& command,
                          const ReprintLimit& first, const ReprintLimit& last);
void reimprimirFactura(PrinterSession& session, const Decimal& number);

}  // namespace corvid
