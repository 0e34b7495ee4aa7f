#include "documents/closing_commands.h"

#include "basic/format.h"
#include "documents/decimal_comma.h"

namespace corvid {

std::wstring subtotalCommand(bool print) { return print ? L"3" : L"4"; }

std::wstring percentageDiscountCommand(const Decimal& percentage) {
  return L"p-" + format(percentage.timesPowerOfTen(2).floor(), L"00000");
}

std::wstring amountDiscountCommand(std::wstring_view amount) {
  return L"q-" + std::wstring(amount);
}

std::wstring generalDiscountCommand(bool isPercentage, bool isDiscount, const Decimal& value) {
  std::wstring command = L"G";
  command += isPercentage ? L"P" : L"M";
  command += isDiscount ? L"-" : L"+";
  return command + L"*" + withDecimalComma(value, L"###0.00");
}

std::wstring paymentCommand(std::wstring_view letter, const Decimal& means,
                            std::wstring_view amount) {
  std::wstring command(letter);
  command += format(means, L"00");
  command += amount;
  return command;
}

}  // namespace corvid
