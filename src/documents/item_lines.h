// Item lines: sale, refund and void, in the classic and the general form.
#pragma once

#include "basic/currency.h"
#include "protocol/item_commands.h"
#include "session/printer_session.h"

#include <cstdint>
#include <string>

namespace corvid {

// One line as the host gives it. Rates are percentages (16 for 16 %), negative for the collected
// levy; quantities must not be negative in the classic form.
struct ItemLine {
  std::wstring description;
  Currency price;
  double quantity = 0;
  double rate = 0;
};

// The classic lines: rate character, price, quantity, and the description cut to the setting
// "ColumnasDescripcion". Each returns Execute's result. A negative quantity sends nothing, sets
// pfClientError with its words, and returns 3.
std::int16_t PasarItem(PrinterSession& session, const ItemLine& line);
std::int16_t RefundItem(PrinterSession& session, const ItemLine& line);
std::int16_t AnularItem(PrinterSession& session, const ItemLine& line);

// The general line: kind, rate index, price with two and quantity with three decimals behind a
// comma, the code between bars unless it is empty, the whole description.
std::int16_t detalleGeneral(PrinterSession& session, const std::wstring& kind, const ItemLine& line,
                            const std::wstring& code);

// The rate index of a percentage: "IndicePercibido" (default 4) below 0; else the first configured
// rate, and then the first of the printer's three, within less than 0.1; else 0. Reads the
// printer's rates when they are needed and not there.
std::int16_t IndiceTasa(PrinterSession& session, double rate);

}  // namespace corvid
