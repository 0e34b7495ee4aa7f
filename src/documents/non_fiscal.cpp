#include "documents/non_fiscal.h"

#include "protocol/housekeeping_commands.h"

namespace corvid {
std::int16_t PrintNoFiscal(PrinterFiscal& session, const std::wstring& text, bool close) {
  return session.Execute(nonFiscalCommand(text, close));
}

std::int16_t ReporteDiario(PrinterFiscal& session, const std::wstring& range,
                           const std::wstring& kind) {
  return session.Execute(reportCommand(range, kind));
}

std::int16_t SetHeader(PrinterFiscal& session, const std::wstring& lineNumber,
                       const std::wstring& text) {
  return session.Execute(headerCommand(lineNumber, text));
}

std::int16_t SetFooter(PrinterFiscal& session, std::int32_t lineNumber, const std::wstring& text) {
  return session.Execute(footerCommand(lineNumber, text, session.library().codePage()));
}

std::int16_t SetDate(PrinterFiscal& session, Date date) {
  return session.Execute(setDateCommand(date));
}

std::int16_t SetTime(PrinterFiscal& session, Date time) {
  return session.Execute(setTimeCommand(time));
}

std::int16_t Login(PrinterFiscal& session, const Decimal& cashier) {
  return session.Execute(loginCommand(cashier));
}

std::int16_t Logoff(PrinterFiscal& session) { return session.Execute(kLogoff); }

std::int16_t StartTraining(PrinterFiscal& session) { return session.Execute(kStartTraining); }

std::int16_t EndTraining(PrinterFiscal& session) { return session.Execute(kEndTraining); }

std::int16_t setFlag(PrinterFiscal& session, const Decimal& flag, const Decimal& value) {
  return session.Execute(setFlagCommand(flag, value));
}

void reimprimirDocumentos(PrinterFiscal& session, const std::wstring& command,
                          const ReprintLimit& first, const ReprintLimit& last) {
  const bool byDate = isLimitedByDates(command);
  const auto limit = [&](const ReprintLimit& host) {
    return byDate ? reprintLimit(host.date()) : reprintLimit(host.number());
  };
  const std::wstring from = limit(first);
  session.Execute(reprintCommand(command, from, limit(last)));
}

void reimprimirFactura(PrinterFiscal& session, const Decimal& number) {
  const std::wstring limit = reprintLimit(number);
  session.Execute(reprintCommand(kStoredInvoices, limit, limit));
}

}  // namespace corvid
