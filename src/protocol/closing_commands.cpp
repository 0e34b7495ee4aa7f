#include "protocol/closing_commands.h"

#include "basic/format.h"
#include "protocol/decimal_comma.h"

namespace corvid {
namespace {

std::wstring paymentCommand(std::wstring command, const Decimal& method, std::wstring_view amount) {
  command += format(method, L"00");
  command += amount;
  return command;
}

}  // namespace

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

std::wstring invoicePaymentCommand(const Decimal& method, std::wstring_view amount) {
  return paymentCommand(L"2", method, amount);
}

std::wstring creditNotePaymentCommand(const Decimal& method, std::wstring_view amount) {
  return paymentCommand(L"f", method, amount);
}

}  // namespace corvid
