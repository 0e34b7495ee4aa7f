// Customer data: the lines in front of an invoice or a credit note.
#pragma once

#include "basic/date.h"
#include "session/printer_fiscal.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvid {

struct Customer {
  std::wstring name;
  std::wstring taxId;    // RIF
  std::wstring address;  // lines separated by CR LF
};

// A date argument that may be blank, and then prints as an empty text.
using DateOrBlank = std::optional<Date>;

// The invoice that a credit note corrects; a field is there when the host gave it, even as "".
struct AffectedInvoice {
  std::optional<std::wstring> number;
  std::optional<std::wstring> printerSerial;
  std::optional<DateOrBlank> date;
};

// Each sends its series through Execute and returns pfError as the last command left it. All but
// PasarDatosClienteNC stop at the first failure and show a message box, modal on this thread.
std::int32_t PasarDatosCliente(PrinterFiscal& session, const Customer& customer,
                               const AffectedInvoice& affected);
std::int32_t PasarDatosClienteNC(PrinterFiscal& session, const Customer& customer,
                                 const std::wstring& invoice, const std::wstring& printerSerial,
                                 const DateOrBlank& invoiceDate);
std::int32_t IniciarFactura(PrinterFiscal& session, const Customer& customer);
// An empty invoice number sends no reference.
std::int32_t PasarDatosClientePA(PrinterFiscal& session, const Customer& customer,
                                 const std::wstring& invoice);
std::int32_t PasarDatosClienteNCPA(PrinterFiscal& session, const Customer& customer,
                                   const std::wstring& invoice);

}  // namespace corvid
