// The command texts of customer data, before they are framed: values in, texts out in the order
// of sending, nothing sent.
#pragma once

#include "basic/date.h"
#include "basic/text.h"

#include <optional>
#include <string>
#include <vector>

namespace corvid {

struct Customer {
  std::wstring name;
  std::wstring taxId;    // RIF
  std::wstring address;  // lines separated by CR LF
};

// A date argument that may be blank, and then prints as an empty text.
using DateOrBlank = std::optional<Date>;

// The invoice that a credit note corrects; a field is there when the host gave it, even as "".
struct OriginalInvoice {
  std::optional<std::wstring> number;
  std::optional<std::wstring> printerSerial;
  std::optional<DateOrBlank> date;
};

// A command and the number under which its failure is reported.
struct SeriesStep {
  int number;
  std::wstring command;
};
using Series = std::vector<SeriesStep>;

// The "i" commands.
[[nodiscard]] Lines customerCommands(const Customer& customer, const OriginalInvoice& original);
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
