#include "protocol/item_commands.h"

#include "basic/run_time_error.h"
#include "basic/string_buffer.h"
#include "protocol/decimal_comma.h"

namespace corvid {
namespace {

constexpr int kSaleBase = 32;    // " ", "!", the double quote, "#"
constexpr int kRefundBase = 48;  // "0" to "3"
constexpr int kVoidBase = 0xA0;  // the sale's bytes with the high bit set
constexpr int kLargestByte = 255;

std::wstring byteText(int code, const CodePage& codePage) {
  if (code < 0 || code > kLargestByte) throw invalidProcedureCall();
  return {codePage.toCharacter(static_cast<std::uint8_t>(code))};
}

}  // namespace

std::wstring salePrefix(int index, const CodePage& codePage) {
  return byteText(kSaleBase + index, codePage);
}

std::wstring refundPrefix(int index, const CodePage& codePage) {
  return L"d" + byteText(kRefundBase + index, codePage);
}

std::wstring voidPrefix(int index, const CodePage& codePage) {
  return byteText(kVoidBase + index, codePage);
}

std::wstring generalCommand(const GeneralLine& line) {
  CStringBuffer command;
  command.Append(line.kind);
  command.Append(std::to_wstring(line.index));
  command.Append(withDecimalComma(line.price, L"###0.00") + L"||");
  command.Append(withDecimalComma(line.quantity, L"###0.000") + L"||");
  if (!line.code.empty()) command.Append(L"|" + line.code + L"|");
  command.Append(line.description);
  return command.Value();
}

}  // namespace corvid
