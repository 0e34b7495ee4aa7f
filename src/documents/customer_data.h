// Customer data: the lines before an invoice or a credit note.
#pragma once

#include "protocol/customer_commands.h"
#include "session/printer_session.h"

#include <cstdint>
#include <string>

namespace corvid {

// Each sends its series through Execute and returns pfError as the last command left it. All but
// PasarDatosClienteNC stop at the first failure and show a message box, modal on this thread.
std::int32_t PasarDatosCliente(PrinterSession& session, const Customer& customer,
                               const OriginalInvoice& original);
std::int32_t PasarDatosClienteNC(PrinterSession& session, const Customer& customer,
                                 const std::wstring& invoice, const std::wstring& printerSerial,
                                 const DateOrBlank& invoiceDate);
std::int32_t IniciarFactura(PrinterSession& session, const Customer& customer);
// An empty invoice number sends no reference.
std::int32_t PasarDatosClientePA(PrinterSession& session, const Customer& customer,
                                 const std::wstring& invoice);
std::int32_t PasarDatosClienteNCPA(PrinterSession& session, const Customer& customer,
                                   const std::wstring& invoice);

}  // namespace corvid
