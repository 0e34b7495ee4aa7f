// The command texts of customer data, before they are framed: values in, texts out in the order
// of sending, nothing sent.
#pragma once

#include "basic/text.h"
#include "documents/customer_data.h"

#include <string>
#include <vector>

namespace corvid {

// A command and the number under which its failure is reported.
struct SeriesStep {
  int number;
  std::wstring command;
};
using Series = std::vector<SeriesStep>;

// The "i" commands.
[[nodiscard]] Lines customerCommands(const Customer& customer, const AffectedInvoice& affected);
[[nodiscard]] Lines creditNoteCommands(const Customer& customer, const std::wstring& invoice,
                                       const std::wstring& printerSerial,
                                       const DateOrBlank& invoiceDate);
[[nodiscard]] Lines invoiceOpeningCommands(const Customer& customer);  // without the address
// Lines numbered from 01; empty ones are passed over and use no number.
[[nodiscard]] Lines openingAddressCommands(const Lines& lines);

// The "j" commands. An empty invoice number has no command in the first series.
[[nodiscard]] Series customerSeriesPA(const Customer& customer, const std::wstring& invoice);
[[nodiscard]] Series creditNoteSeriesPA(const Customer& customer, const std::wstring& invoice);

}  // namespace corvid
