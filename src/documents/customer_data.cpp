#include "documents/customer_data.h"

#include "basic/run_time_error.h"
#include "documents/member.h"
#include "documents/str2lines.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace corvid {
namespace {

constexpr const wchar_t* kFailureTitle = L"Error en Printer Fiscal";

struct Failure {
  std::size_t index;  // of the command that failed
  std::wstring description;
};

// Sends commands up to the first that fails; where the data of one cannot be sent, none.
std::optional<Failure> sendInTurn(Member& member, const Lines& commands, const Outcome& outcome) {
  auto failed = std::ranges::find_if(
      commands, [&](const std::wstring& command) { return member.refusesText(command); });
  if (failed == commands.end()) {
    failed = std::ranges::find_if(
        commands, [&](const std::wstring& command) { return member.send(command) != pfOk; });
  }
  if (failed == commands.end()) return std::nullopt;
  return Failure{static_cast<std::size_t>(failed - commands.begin()), outcome.DescripcionError};
}

// Shows a failure when the member's turn is over: the host's message loop runs in the box.
template <class ShowFailure>
std::int32_t sendAndShow(PrinterSession& session, const wchar_t* name, const Lines& commands,
                         ShowFailure showFailure) {
  std::optional<Failure> failure;
  std::int32_t result = pfOk;
  {
    Member member(session, name);
    if (member.isRefused()) return pfClientError;
    failure = sendInTurn(member, commands, session.outcome());
    result = session.outcome().pfError;
  }
  if (failure) showFailure(session.exchange().dialog(), *failure);
  return result;
}

std::int32_t sendAll(PrinterSession& session, const wchar_t* name, const Lines& commands) {
  return sendAndShow(session, name, commands, [](MessageDialog& dialog, const Failure& failure) {
    dialog.show(failure.description, L"", MessageIcon::None);
  });
}

std::int32_t sendSeries(PrinterSession& session, const wchar_t* name, const Series& series) {
  Lines commands;
  for (const SeriesStep& step : series) commands.push_back(step.command);
  return sendAndShow(session, name, commands, [&](MessageDialog& dialog, const Failure& failure) {
    const std::wstring place =
        std::wstring(name) + L" (" + std::to_wstring(series[failure.index].number) + L"): ";
    dialog.show(place + failure.description, kFailureTitle, MessageIcon::Critical);
  });
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
    member.send(command);
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
