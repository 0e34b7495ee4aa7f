#include "basic/conversions.h"

#include "basic/run_time_error.h"
#include "basic/text.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <string>

namespace corvid {
namespace {

template <typename Narrow>
Narrow narrow(std::int64_t value) {
  if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max()) {
    throw overflow();
  }
  return static_cast<Narrow>(value);
}

// Beyond every exponent of a double; a text may name any.
constexpr int kExponentLimit = 5000;
constexpr std::uint64_t kExponentMask = 0x7FF0000000000000U;  // all ones: infinite or no number

bool isSign(wchar_t character) { return character == L'+' || character == L'-'; }

// Takes the digits that a text begins with, up to the given count of points among them.
Text takeDigits(TextView& rest, int points) {
  std::size_t length = 0;
  for (; length < rest.size(); ++length) {
    if (!isDigit(rest[length]) && (rest[length] != L'.' || points-- == 0)) break;
  }
  Text taken(rest.substr(0, length));
  rest.remove_prefix(length);
  return taken;
}

Text takeSign(TextView& rest) {
  if (rest.empty() || !isSign(rest.front())) return {};
  Text sign(rest.substr(0, 1));
  rest.remove_prefix(1);
  return sign;
}

// The exponent that a text begins with; 0 where none is complete.
int takeExponent(TextView rest) {
  if (rest.empty() || TextView(L"EeDd").find(rest.front()) == TextView::npos) return 0;
  rest.remove_prefix(1);
  const bool negative = takeSign(rest) == L"-";
  int exponent = 0;
  for (const wchar_t digit : takeDigits(rest, 0)) {
    exponent = std::min((exponent * 10) + (digit - L'0'), kExponentLimit);
  }
  return negative ? -exponent : exponent;
}

std::optional<double> leadingDecimal(TextView text) {
  const Text sign = takeSign(text);
  const std::optional<Decimal> digits = Decimal::parse(sign + takeDigits(text, 1));
  if (!digits) return std::nullopt;
  return digits->timesPowerOfTen(takeExponent(text)).toDouble();
}

int digitValue(wchar_t character) {
  if (isDigit(character)) return character - L'0';
  if (character >= L'A' && character <= L'F') return character - L'A' + 10;
  if (character >= L'a' && character <= L'f') return character - L'a' + 10;
  return std::numeric_limits<int>::max();
}

// Up to 16 bits the digits are those of a 16-bit integer, up to 32 of a 32-bit one: &HFFFF is -1.
double signedValue(std::uint64_t bits) {
  if (bits <= std::numeric_limits<std::uint16_t>::max()) return static_cast<std::int16_t>(bits);
  if (bits <= std::numeric_limits<std::uint32_t>::max()) return static_cast<std::int32_t>(bits);
  throw overflow();
}

std::optional<double> leadingRadix(TextView digits, unsigned radix) {
  constexpr std::uint64_t kTooLarge = std::uint64_t{1} << 32U;
  std::optional<std::uint64_t> bits;
  for (const wchar_t character : digits) {
    const auto digit = static_cast<unsigned>(digitValue(character));
    if (digit >= radix) break;
    bits = std::min((bits.value_or(0) * radix) + digit, kTooLarge);
  }
  if (!bits) return std::nullopt;
  return signedValue(*bits);
}

// Nothing when no digit leads; overflow when the value does not fit.
std::optional<double> readLeading(TextView text) {
  Text packed(text);
  std::erase_if(packed, [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\n'; });
  const TextView view(packed);
  const Text prefix = upperCase(view.substr(0, 2));
  if (prefix == L"&H") return leadingRadix(view.substr(2), 16);
  if (prefix == L"&O") return leadingRadix(view.substr(2), 8);
  return leadingDecimal(view);
}

}  // namespace

double requireFinite(double value) {
  if ((std::bit_cast<std::uint64_t>(value) & kExponentMask) == kExponentMask) throw overflow();
  return value;
}

std::int16_t narrowToInt16(std::int64_t value) { return narrow<std::int16_t>(value); }
std::int32_t narrowToInt32(std::int64_t value) { return narrow<std::int32_t>(value); }

std::int16_t toInt16(const Decimal& value) { return narrowToInt16(value.toInt64()); }
std::int32_t toInt32(const Decimal& value) { return narrowToInt32(value.toInt64()); }

std::int16_t toInt16(double value) { return toInt16(Decimal::fromDouble(value)); }
std::int32_t toInt32(double value) { return toInt32(Decimal::fromDouble(value)); }

Decimal parsePrinterNumber(std::wstring_view text) {
  Text digits = trim(text);
  Text sign;
  if (!digits.empty() && isSign(digits.front())) {
    sign = left(digits, 1);
    digits.erase(0, 1);
  } else if (!digits.empty() && isSign(digits.back())) {
    sign = right(digits, 1);
    digits.pop_back();
  }
  const std::optional<Decimal> number = Decimal::parse(sign + trim(digits));
  if (!number) throw typeMismatch();
  return *number;
}

std::optional<double> leadingNumber(std::wstring_view text) {
  try {
    return readLeading(text);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

double leadingNumberOrZero(std::wstring_view text) { return readLeading(text).value_or(0); }

bool toBoolean(std::wstring_view text) {
  const Text word = trim(text);
  if (equalIgnoringCase(word, L"True")) return true;
  if (equalIgnoringCase(word, L"False")) return false;
  return !parsePrinterNumber(word).isZero();
}

}  // namespace corvid
