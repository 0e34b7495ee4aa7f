#include "documents/non_fiscal.h"

#include "documents/member.h"
#include "protocol/housekeeping_commands.h"

namespace corvid {
namespace {

std::int16_t sendPlain(PrinterSession& session, const wchar_t* name, const wchar_t* command) {
  return sendAs(session, name, [&] { return std::wstring(command); });
}

}  // namespace

std::int16_t PrintNoFiscal(PrinterSession& session, const std::wstring& text, bool close) {
  return sendAs(session, L"PrintNoFiscal", [&] { return nonFiscalCommand(text, close); });
}

std::int16_t ReporteDiario(PrinterSession& session, const std::wstring& range,
                           const std::wstring& kind) {
  return sendAs(session, L"ReporteDiario", [&] { return reportCommand(range, kind); });
}

std::int16_t SetHeader(PrinterSession& session, const std::wstring& lineNumber,
                       const std::wstring& text) {
  return sendAs(session, L"SetHeader", [&] { return headerCommand(lineNumber, text); });
}

std::int16_t SetFooter(PrinterSession& session, std::int32_t lineNumber, const std::wstring& text) {
  return sendAs(session, L"SetFooter",
                [&] { return footerCommand(lineNumber, text, session.thread().codePage()); });
}

std::int16_t SetDate(PrinterSession& session, Date date) {
  return sendAs(session, L"SetDate", [&] { return setDateCommand(date); });
}

std::int16_t SetTime(PrinterSession& session, Date time) {
  return sendAs(session, L"SetTime", [&] { return setTimeCommand(time); });
}

std::int16_t Login(PrinterSession& session, const Decimal& cashier) {
  return sendAs(session, L"Login", [&] { return loginCommand(cashier); });
}

std::int16_t Logoff(PrinterSession& session) { return sendPlain(session, L"Logoff", kLogoff); }

std::int16_t StartTraining(PrinterSession& session) {
  return sendPlain(session, L"StartTraining", kStartTraining);
}

std::int16_t EndTraining(PrinterSession& session) {
  return sendPlain(session, L"EndTraining", kEndTraining);
}

std::int16_t setFlag(PrinterSession& session, const Decimal& flag, const Decimal& value) {
  return sendAs(session, L"setFlag", [&] { return setFlagCommand(flag, value); });
}

void reimprimirDocumentos(PrinterSession& session, const std::wstring& command,
                          const ReprintLimit& first, const ReprintLimit& last) {
  // Before the turn: a host's value may run the host's code when it is read.
  const bool byDate = isLimitedByDates(command);
  const auto limit = [&](const ReprintLimit& host) {
    return byDate ? reprintLimit(host.date()) : reprintLimit(host.number());
  };
  const std::wstring from = limit(first);
  const std::wstring to = limit(last);
  sendAs(session, L"reimprimirDocumentos", [&] { return reprintCommand(command, from, to); });
}

void reimprimirFactura(PrinterSession& session, const Decimal& number) {
  const std::wstring limit = reprintLimit(number);
  sendAs(session, L"reimprimirFactura",
         [&] { return reprintCommand(kStoredInvoices, limit, limit); });
}

}  // namespace corvid
