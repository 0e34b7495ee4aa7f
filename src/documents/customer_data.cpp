#include "documents/customer_data.h"

#include "documents/str2lines.h"

namespace corvid {
namespace {

constexpr const wchar_t* kFailureTitle = L"Error en Printer Fiscal";

// False at the first command that failed, which is shown.
bool sendAll(PrinterSession& session, const Lines& commands) {
  for (const std::wstring& command : commands) {
    if (session.Execute(command) == pfOk) continue;
    session.process().dialog().show(session.outcome().DescripcionError, L"", MessageIcon::None);
    return false;
  }
  return true;
}

void reportStep(PrinterSession& session, const wchar_t* method, int number) {
  const std::wstring place = std::wstring(method) + L" (" + std::to_wstring(number) + L"): ";
  session.process().dialog().show(place + session.outcome().DescripcionError, kFailureTitle,
                                  MessageIcon::Critical);
}

std::int32_t sendSeries(PrinterSession& session, const wchar_t* method, const Series& series) {
  for (const SeriesStep& step : series) {
    if (session.Execute(step.command) == pfOk) continue;
    reportStep(session, method, step.number);
    break;
  }
  return session.outcome().pfError;
}

}  // namespace

std::int32_t PasarDatosCliente(PrinterSession& session, const Customer& customer,
                               const AffectedInvoice& affected) {
  sendAll(session, customerCommands(customer, affected));
  return session.outcome().pfError;
}

std::int32_t PasarDatosClienteNC(PrinterSession& session, const Customer& customer,
                                 const std::wstring& invoice, const std::wstring& printerSerial,
                                 const DateOrBlank& invoiceDate) {
  for (const std::wstring& command :
       creditNoteCommands(customer, invoice, printerSerial, invoiceDate)) {
    session.Execute(command);
  }
  return session.outcome().pfError;
}

// The setting "LineasDireccion" never cuts an address, so it is not read: a larger one could only
// add empty lines, which are not sent.
std::int32_t IniciarFactura(PrinterSession& session, const Customer& customer) {
  if (sendAll(session, invoiceOpeningCommands(customer))) {
    const Lines wrapped = lmStr2Lines(customer.address, session.AnchoDireccion());
    sendAll(session, openingAddressCommands(wrapped));
  }
  return session.outcome().pfError;
}

std::int32_t PasarDatosClientePA(PrinterSession& session, const Customer& customer,
                                 const std::wstring& invoice) {
  return sendSeries(session, L"PasarDatosClientePA", customerSeriesPA(customer, invoice));
}

std::int32_t PasarDatosClienteNCPA(PrinterSession& session, const Customer& customer,
                                   const std::wstring& invoice) {
  return sendSeries(session, L"PasarDatosClienteNCPA", creditNoteSeriesPA(customer, invoice));
}

}  // namespace corvid
