// The default text forms, as when a value is joined to a text.

#include "basic/format.h"

namespace corvid {
namespace {

constexpr int kDoubleDigits = 15;
constexpr int kFloatDigits = 7;
constexpr int kSmallestPlain = -4;  // power of ten of the first digit

std::wstring plainText(const Decimal& value, const Locale& locale) {
  const std::wstring whole = value.integerDigits();
  const std::wstring fraction = value.fractionDigits();
  std::wstring text = value.isNegative() ? L"-" : L"";
  text += whole.empty() ? L"0" : whole;
  if (!fraction.empty()) text += locale.decimalSeparator + fraction;
  return text;
}

std::wstring exponentText(const Decimal& value, const Locale& locale) {
  const int power = value.magnitude();
  return plainText(value.timesPowerOfTen(-power), locale) + (power < 0 ? L"E-" : L"E+") +
         formatInteger(power < 0 ? -power : power, L"00");
}

std::wstring floatingText(double value, int digits, const Locale& locale) {
  const Decimal decimal = Decimal::fromDouble(value, digits);
  const int power = decimal.magnitude();
  const bool isPlain = power >= kSmallestPlain && power < digits;
  return isPlain ? plainText(decimal, locale) : exponentText(decimal, locale);
}

}  // namespace

std::wstring toText(double value, const Locale& locale) {
  return floatingText(value, kDoubleDigits, locale);
}

std::wstring toText(float value, const Locale& locale) {
  return floatingText(value, kFloatDigits, locale);
}

std::wstring toText(Currency value, const Locale& locale) {
  return plainText(value.toDecimal(), locale);
}

std::wstring toText(bool value) { return value ? L"True" : L"False"; }

std::wstring toHex(std::int32_t value) {
  std::wstring text;
  auto bits = static_cast<std::uint32_t>(value);
  do {
    text.insert(text.begin(), L"0123456789ABCDEF"[bits % 16]);
    bits /= 16;
  } while (bits != 0);
  return text;
}

}  // namespace corvid
