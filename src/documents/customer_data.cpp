#include "documents/customer_data.h"

#include "basic/run_time_error.h"
#include "documents/member.h"
#include "documents/str2lines.h"

#include <algorithm>
#include <cstddef>

namespace corvid {
namespace {

constexpr const wchar_t* kFailureTitle = L"Error en Printer Fiscal";

// Sends a series up to the first command that fails; of one whose data cannot be sent, nothing. The
// place of the command that failed, or the series' length.
template <class Commands, class TextOf>
std::size_t sendInTurn(Member& member, const Commands& commands, TextOf textOf) {
  const auto refused = std::ranges::find_if(
      commands, [&](const auto& command) { return member.refusesText(textOf(command)); });
  const auto failed = refused != commands.end()
                          ? refused
                          : std::ranges::find_if(commands, [&](const auto& command) {
                              return member.send(textOf(command)) != pfOk;
                            });
  return static_cast<std::size_t>(failed - commands.begin());
}

// Boxes are shown when the member's turn is over: the host's message loop runs in them.
std::int32_t sendAll(PrinterSession& session, const wchar_t* name, const Lines& commands) {
  std::size_t sent = 0;
  {
    Member member(session, name);
    if (member.isRefused()) return pfClientError;
    sent = sendInTurn(member, commands, [](const std::wstring& command) { return command; });
  }
  const std::int32_t result = session.outcome().pfError;
  if (sent < commands.size()) {
    session.exchange().dialog().show(session.outcome().DescripcionError, L"", MessageIcon::None);
  }
  return result;
}

std::int32_t sendSeries(PrinterSession& session, const wchar_t* name, const Series& series) {
  std::size_t sent = 0;
  {
    Member member(session, name);
    if (member.isRefused()) return pfClientError;
    sent = sendInTurn(member, series, [](const SeriesStep& step) { return step.command; });
  }
  const std::int32_t result = session.outcome().pfError;
  if (sent < series.size()) {
    const std::wstring place =
        std::wstring(name) + L" (" + std::to_wstring(series[sent].number) + L"): ";
    session.exchange().dialog().show(place + session.outcome().DescripcionError, kFailureTitle,
                                     MessageIcon::Critical);
  }
  return result;
}

// Where a chunk held CR and LF, the one that did not break the line is still in it.
Lines addressLines(const std::wstring& address, std::int16_t width) {
  Lines lines = lmStr2Lines(address, width);
  for (std::wstring& line : lines) {
    std::ranges::replace_if(
        line, [](wchar_t c) { return c == L'\r' || c == L'\n'; }, L' ');
  }
  return lines;
}

}  // namespace

std::int32_t PasarDatosCliente(PrinterSession& session, const Customer& customer,
                               const OriginalInvoice& original) {
  return sendAll(session, L"PasarDatosCliente", customerCommands(customer, original));
}

std::int32_t PasarDatosClienteNC(PrinterSession& session, const Customer& customer,
                                 const std::wstring& invoice, const std::wstring& printerSerial,
                                 const DateOrBlank& invoiceDate) {
  Member member(session, L"PasarDatosClienteNC");
  if (member.isRefused()) return pfClientError;
  const Lines commands = creditNoteCommands(customer, invoice, printerSerial, invoiceDate);
  if (std::ranges::any_of(commands, [&](const auto& text) { return member.refusesText(text); })) {
    return pfClientError;
  }
  for (const std::wstring& command : commands) {
    if (member.send(command) != pfOk && session.exchange().isAbandoned()) break;
  }
  return session.outcome().pfError;
}

// The setting "LineasDireccion" never cuts an address, so it is not read: a larger one could only
// add empty lines, which are not sent.
std::int32_t IniciarFactura(PrinterSession& session, const Customer& customer) {
  const std::int16_t width = session.AnchoDireccion();
  Lines commands = invoiceOpeningCommands(customer);
  if (width > 0) {
    const Lines address = openingAddressCommands(addressLines(customer.address, width));
    commands.insert(commands.end(), address.begin(), address.end());
  }
  const std::int32_t result = sendAll(session, L"IniciarFactura", commands);
  // The names stand before the address, whose width is refused.
  if (width < 1 && result == pfOk) throw invalidProcedureCall();
  return result;
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
