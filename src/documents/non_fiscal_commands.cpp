#include "documents/non_fiscal_commands.h"

#include "basic/format.h"
#include "basic/text.h"
#include "basic/text_lines.h"

namespace corvid {
namespace {

constexpr int kLineWidth = 40;

}  // namespace

std::wstring nonFiscalCommand(std::wstring_view text, bool close) {
  return (close ? L"810" : L"800") + left(text, kLineWidth);
}

std::wstring programmedLineCommand(std::wstring_view sign, std::wstring_view text) {
  std::wstring command = L"PH";
  command += sign;
  return command + PadRightCut(CenterCut(text, kLineWidth), kLineWidth);
}

std::wstring setDateCommand(Date date) { return L"PG" + format(date, L"ddmmyy"); }

std::wstring setTimeCommand(Date time) { return L"PF" + format(time, L"hhnnss"); }

std::wstring loginCommand(const Decimal& cashier) { return L"5" + format(cashier, L"00000"); }

std::wstring setFlagCommand(const Decimal& flag, const Decimal& value) {
  return L"PJ" + format(flag, L"00") + format(value, L"00");
}

std::wstring reprintLimit(Date date) { return L"0" + format(date, L"yymmdd"); }

std::wstring reprintLimit(const Decimal& number) { return format(number, L"0000000"); }

bool takesDates(std::wstring_view reprintCommand) {
  return reprintCommand >= L"a" && reprintCommand <= L"z";
}

}  // namespace corvid
