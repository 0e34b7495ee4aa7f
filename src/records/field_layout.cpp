#include "records/field_layout.h"

#include "basic/text.h"

namespace corvid {

Currency readAmount(std::wstring_view text) {
  return fromHundredths(Currency::fromDecimal(parsePrinterNumber(text)));
}

std::int32_t readCounter(std::wstring_view text) { return toInt32(parsePrinterNumber(text)); }

std::int16_t readCashier(std::wstring_view text) {
  return toInt16(parsePrinterNumber(right(text, 2)));
}

}  // namespace corvid
