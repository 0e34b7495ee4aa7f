#include "documents/non_fiscal.h"

#include "protocol/housekeeping_commands.h"

namespace corvid {
std::int16_t PrintNoFiscal(PrinterSession& session, const std::wstring& text, bool close) {
  return session.Execute(nonFiscalCommand(text, close));
}

std::int16_t ReporteDiario(PrinterSession& session, const std::wstring& range,
                           const std::wstring& kind) {
  return session.Execute(reportCommand(range, kind));
}

std::int16_t SetHeader(PrinterSession& session, const std::wstring& lineNumber,
                       const std::wstring& text) {
  return session.Execute(headerCommand(lineNumber, text));
}

std::int16_t SetFooter(PrinterSession& session, std::int32_t lineNumber, const std::wstring& text) {
  return session.Execute(footerCommand(lineNumber, text, session.process().codePage()));
}

std::int16_t SetDate(PrinterSession& session, Date date) {
  return session.Execute(setDateCommand(date));
}

std::int16_t SetTime(PrinterSession& session, Date time) {
  return session.Execute(setTimeCommand(time));
}

std::int16_t Login(PrinterSession& session, const Decimal& cashier) {
  return session.Execute(loginCommand(cashier));
}

std::int16_t Logoff(PrinterSession& session) { return session.Execute(kLogoff); }

std::int16_t StartTraining(PrinterSession& session) { return session.Execute(kStartTraining); }

std::int16_t EndTraining(PrinterSession& session) { return session.Execute(kEndTraining); }

std::int16_t setFlag(PrinterSession& session, const Decimal& flag, const Decimal& value) {
  return session.Execute(setFlagCommand(flag, value));
}

void reimprimirDocumentos(PrinterSession& session, const std::wstring& command,
                          const ReprintLimit& first, const ReprintLimit& last) {
  const bool byDate = isLimitedByDates(command);
  const auto limit = [&](const ReprintLimit& host) {
    return byDate ? reprintLimit(host.date()) : reprintLimit(host.number());
  };
  const std::wstring from = limit(first);
  session.Execute(reprintCommand(command, from, limit(last)));
}

void reimprimirFactura(PrinterSession& session, const Decimal& number) {
  const std::wstring limit = reprintLimit(number);
  session.Execute(reprintCommand(kStoredInvoices, limit, limit));
}

}  // namespace corvid
