#include "protocol/customer_commands.h"

#include "basic/format.h"
#include "basic/text_lines.h"
#include "protocol/line_width.h"

namespace corvid {
namespace {

constexpr int kReferenceWidth = 12;  // of an original invoice's number and serial number
constexpr int kTaxIdWidthPA = 20;
constexpr int kInvoiceWidthPA = 22;

// Numbers a run of lines of one family.
class NumberedLines {
 public:
  NumberedLines(const wchar_t* letter, const wchar_t* pattern, int first)
      : letter_(letter), pattern_(pattern), next_(first) {}

  std::wstring command(const std::wstring& text) {
    return letter_ + formatInteger(next_++, pattern_) + text;
  }

  // One command for each line with text in it, cut to the width of a line.
  Lines commands(const Lines& lines) {
    Lines result;
    for (const std::wstring& line : lines) {
      if (!line.empty()) result.push_back(command(left(line, kLineWidth)));
    }
    return result;
  }

 private:
  const wchar_t* letter_;
  const wchar_t* pattern_;
  int next_;
};

Lines addressLines(const Customer& customer) { return split(customer.address, L"\r\n"); }

std::wstring dateText(const DateOrBlank& date) {
  return date ? format(*date, L"dd-mm-yyyy") : std::wstring();
}

void append(Lines& commands, const Lines& more) {
  commands.insert(commands.end(), more.begin(), more.end());
}

void appendAddressPA(Series& series, int step, const Customer& customer) {
  NumberedLines numbered(L"j", L"0", 1);
  for (std::wstring& command : numbered.commands(addressLines(customer))) {
    series.push_back({step, std::move(command)});
  }
}

}  // namespace

Lines customerCommands(const Customer& customer, const OriginalInvoice& original) {
  NumberedLines numbered(L"i", L"00", 1);
  Lines commands;
  commands.push_back(numbered.command(left(customer.name, kLineWidth)));
  commands.push_back(numbered.command(L"RIF:" + customer.taxId));
  append(commands, numbered.commands(addressLines(customer)));
  if (original.number) {
    commands.push_back(
        numbered.command(L"#Factura afectada: " + left(*original.number, kReferenceWidth)));
  }
  if (original.printerSerial) {
    commands.push_back(
        numbered.command(L"Serial impresora: " + left(*original.printerSerial, kReferenceWidth)));
  }
  if (original.date) {
    commands.push_back(numbered.command(L"Fecha factura: " + dateText(*original.date)));
  }
  return commands;
}

Lines creditNoteCommands(const Customer& customer, const std::wstring& invoice,
                         const std::wstring& printerSerial, const DateOrBlank& invoiceDate) {
  Lines commands = {
      L"iS*" + left(customer.name, kLineWidth), L"iR*" + customer.taxId,
      L"iF*" + left(invoice, kLineWidth),       L"iI*" + printerSerial,
      L"iD*" + dateText(invoiceDate),
  };
  append(commands, NumberedLines(L"i", L"00", 0).commands(addressLines(customer)));
  return commands;
}

Lines invoiceOpeningCommands(const Customer& customer) {
  return {L"iR*" + customer.taxId, L"iS*" + left(customer.name, kLineWidth)};
}

Lines openingAddressCommands(const Lines& lines) {
  return NumberedLines(L"i", L"00", 1).commands(lines);
}

Series customerSeriesPA(const Customer& customer, const std::wstring& invoice) {
  Series series = {
      {1, L"jR" + left(customer.taxId, kTaxIdWidthPA)},
      {2, L"jS" + PadRightCut(customer.name, kLineWidth)},
  };
  if (!invoice.empty()) series.push_back({3, L"jF" + invoice});
  appendAddressPA(series, 3, customer);  // the reference's number again, as hosts know it
  return series;
}

Series creditNoteSeriesPA(const Customer& customer, const std::wstring& invoice) {
  Series series = {
      {1, L"jR*" + customer.taxId},
      {2, L"jS*" + left(customer.name, kLineWidth)},
      {3, L"jF*" + PadRightCut(invoice, kInvoiceWidthPA)},
  };
  appendAddressPA(series, 4, customer);
  return series;
}

}  // namespace corvid
