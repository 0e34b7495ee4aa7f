// The summary of a day, and a Z report, as the printer sends them.
#pragma once

#include "simulator/device/fiscal_memory.h"

#include <cstddef>
#include <string>

namespace corvid::simulator {

// A day's summary in the layout that has so many fields. Dates are yymmdd, times hhmmss, amounts
// hundredths; "seven" is the exempt amount and three pairs of base and tax.
//
//   20        Z report number and date, last invoice's number, date and time, seven of invoices,
//             seven of credit notes, last credit note
//   29        Z report number, date and time, last invoice's number, date and time, seven of
//             invoices, seven of debit notes, last debit note, seven of credit notes, last credit
//             note
//   30 to 41  Z report number, date and time, last invoice's number, date and time, last debit
//   note,
//             credit note and non-fiscal document, seven of invoices, of debit notes and of credit
//             notes; then as far as there are fields: the collected levy of the three kinds, base
//             and amount of the levy on foreign currency of the three kinds, totals of invoices and
//             of credit notes
[[nodiscard]] std::string summaryReply(const ZReport& day, std::size_t fields);

// A Z report kept in the memory: the layout of 30 fields, whatever the model.
[[nodiscard]] std::string zReportReply(const ZReport& zReport);

}  // namespace corvid::simulator
