#include "documents/non_fiscal.h"

#include "basic/run_time_error.h"
#include "documents/non_fiscal_commands.h"

#include <limits>

namespace corvid {
namespace {

constexpr std::int64_t kInFrontOfA = 'A' - 1;

wchar_t characterOf(std::int64_t code, const CodePage& page) {
  if (code < 0 || code > std::numeric_limits<std::uint8_t>::max()) throw invalidProcedureCall();
  return page.toCharacter(static_cast<std::uint8_t>(code));
}

}  // namespace

std::int16_t PrintNoFiscal(PrinterFiscal& session, const std::wstring& text, bool close) {
  return session.Execute(nonFiscalCommand(text, close));
}

std::int16_t ReporteDiario(PrinterFiscal& session, const std::wstring& range,
                           const std::wstring& kind) {
  return session.Execute(L"I" + range + kind);
}

std::int16_t SetHeader(PrinterFiscal& session, const std::wstring& lineNumber,
                       const std::wstring& text) {
  return session.Execute(programmedLineCommand(lineNumber, text));
}

std::int16_t SetFooter(PrinterFiscal& session, std::int32_t lineNumber, const std::wstring& text) {
  const wchar_t letter = characterOf(kInFrontOfA + lineNumber, session.library().codePage());
  return session.Execute(programmedLineCommand(std::wstring_view(&letter, 1), text));
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

std::int16_t Logoff(PrinterFiscal& session) { return session.Execute(L"6"); }

std::int16_t StartTraining(PrinterFiscal& session) { return session.Execute(L"T1"); }

std::int16_t EndTraining(PrinterFiscal& session) { return session.Execute(L"T2"); }

std::int16_t setFlag(PrinterFiscal& session, const Decimal& flag, const Decimal& value) {
  return session.Execute(setFlagCommand(flag, value));
}

void reimprimirDocumentos(PrinterFiscal& session, const std::wstring& command,
                          const ReprintLimit& first, const ReprintLimit& last) {
  const bool byDate = takesDates(command);
  const auto limit = [&](const ReprintLimit& host) {
    return byDate ? reprintLimit(host.date()) : reprintLimit(host.number());
  };
  const std::wstring from = limit(first);
  session.Execute(L"R" + command + from + limit(last));
}

void reimprimirFactura(PrinterFiscal& session, const Decimal& number) {
  const std::wstring limit = reprintLimit(number);
  session.Execute(L"RF" + limit + limit);
}

}  // namespace corvid
