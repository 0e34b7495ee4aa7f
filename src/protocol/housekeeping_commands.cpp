#include "protocol/housekeeping_commands.h"

#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "basic/text_lines.h"
#include "protocol/line_width.h"

#include <limits>

namespace corvid {
namespace {

constexpr std::int64_t kBeforeA = 'A' - 1;

wchar_t characterOf(std::int64_t code, const CodePage& page) {
  if (code < 0 || code > std::numeric_limits<std::uint8_t>::max()) throw invalidProcedureCall();
  return page.toCharacter(static_cast<std::uint8_t>(code));
}

}  // namespace

std::wstring nonFiscalCommand(std::wstring_view text, bool close) {
  return (close ? L"810" : L"800") + left(text, kLineWidth);
}

std::wstring reportCommand(std::wstring_view range, std::wstring_view kind) {
  std::wstring command = L"I";
  command += range;
  command += kind;
  return command;
}

std::wstring headerCommand(std::wstring_view lineNumber, std::wstring_view text) {
  std::wstring command = L"PH";
  command += lineNumber;
  return command + PadRightCut(CenterCut(text, kLineWidth), kLineWidth);
}

std::wstring footerCommand(std::int32_t lineNumber, std::wstring_view text,
                           const CodePage& codePage) {
  const wchar_t letter = characterOf(kBeforeA + lineNumber, codePage);
  return headerCommand(std::wstring_view(&letter, 1), text);
}

std::wstring setDateCommand(Date date) { return L"PG" + format(date, L"ddmmyy"); }

std::wstring setTimeCommand(Date time) { return L"PF" + format(time, L"hhnnss"); }

std::wstring loginCommand(const Decimal& cashier) { return L"5" + format(cashier, L"00000"); }

std::wstring setFlagCommand(const Decimal& flag, const Decimal& value) {
  return L"PJ" + format(flag, L"00") + format(value, L"00");
}

std::wstring reprintCommand(std::wstring_view kind, std::wstring_view first,
                            std::wstring_view last) {
  std::wstring command = L"R";
  command += kind;
  command += first;
  command += last;
  return command;
}

std::wstring reprintLimit(Date date) { return L"0" + format(date, L"yymmdd"); }

std::wstring reprintLimit(const Decimal& number) { return format(number, L"0000000"); }

bool isLimitedByDates(std::wstring_view kind) { return kind >= L"a" && kind <= L"z"; }

}  // namespace corvid
