// Item lines: sale, refund and void, in the classic and the general form.
#pragma once

#include "basic/currency.h"
#include "basic/decimal.h"
#include "protocol/item_commands.h"
#include "session/printer_session.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvid {

// Rates are percentages (16 for 16 %), negative for the collected levy. Doubles count by the 15
// digits that they are sure of; overflow (6) for infinities and what is not a number.

// The classic lines: rate character, price, quantity, and the description cut to the setting
// "ColumnasDescripcion". Each returns Execute's result. A negative quantity sends nothing, sets
// pfClientError with its words, and returns 3. A rate other than 0 that no configured rate matches
// while the printer's rates cannot be read sends nothing, sets pfCommError with "Tasas no
// disponibles", and returns 1: the line would be sold as exempt.
std::int16_t PasarItem(PrinterSession& session, const std::wstring& description, Currency price,
                       double quantity, double rate);
std::int16_t RefundItem(PrinterSession& session, const std::wstring& description, Currency price,
                        double quantity, double rate);
std::int16_t AnularItem(PrinterSession& session, const std::wstring& description, Currency price,
                        double quantity, double rate);

// What a general line tells.
struct GeneralItem {
  std::wstring description;
  Decimal price;
  double quantity = 0;
  double rate = 0;
  std::optional<std::wstring> code;
};

// The general line: kind, rate index, price with two and quantity with three decimals after a
// comma, each rounded once, the code between bars unless it is missing or empty, the whole
// description. Rates as above.
std::int16_t detalleGeneral(PrinterSession& session, const std::wstring& kind,
                            const GeneralItem& item);
// The same for one kind each: sold and voided on an invoice, entered and voided on a credit note.
std::int16_t pasarLineaFacturaG(PrinterSession& session, const GeneralItem& item);
std::int16_t anularLineaFacturaG(PrinterSession& session, const GeneralItem& item);
std::int16_t pasarLineaNCG(PrinterSession& session, const GeneralItem& item);
std::int16_t anularLineaNCG(PrinterSession& session, const GeneralItem& item);

// The rate index of a percentage: "IndicePercibido" (default 4) below 0; else the first configured
// rate, and then the first of the printer's three, within less than 0.1; else 0. Reads the
// printer's rates when they are needed and not there; 0 where they cannot be read.
std::int16_t IndiceTasa(PrinterSession& session, double rate);

}  // namespace corvid
