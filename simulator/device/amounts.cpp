#include "simulator/device/amounts.h"

#include <algorithm>

namespace corvid::simulator {
namespace {

constexpr std::size_t kMaxWholeDigits = 14;

bool areDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::int64_t powerOfTen(int exponent) {
  std::int64_t power = 1;
  for (int i = 0; i < exponent; ++i) {
    power *= 10;
  }
  return power;
}

std::int64_t numberOf(std::string_view digits) {
  std::int64_t number = 0;
  for (const char digit : digits) {
    number = number * 10 + (digit - '0');
  }
  return number;
}

std::string grouped(std::string digits) {
  for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > 0; at -= 3) {
    digits.insert(static_cast<std::size_t>(at), ".");
  }
  return digits;
}

std::string fixedPoint(std::int64_t value, int decimals) {
  const std::int64_t unit = powerOfTen(decimals);
  const std::int64_t size = value < 0 ? -value : value;
  return (value < 0 ? "-" : "") + grouped(std::to_string(size / unit)) + "," +
         zeroPadded(size % unit, static_cast<std::size_t>(decimals));
}

}  // namespace

std::int64_t roundedQuotient(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t quotient = dividend / divisor;
  const std::int64_t remainder = dividend % divisor;
  return remainder >= divisor - remainder ? quotient + 1 : quotient;
}

Amount roundedShare(Amount size, Amount part, Amount whole) {
  Amount quotient = 0;
  Amount remainder = 0;
  // Long division, bit by bit: the product itself would not fit.
  for (int bit = 62; bit >= 0; --bit) {
    remainder = remainder * 2 + (((size >> bit) & 1) != 0 ? part : 0);
    quotient = quotient * 2 + remainder / whole;
    remainder %= whole;
  }
  return remainder >= whole - remainder ? quotient + 1 : quotient;
}

std::optional<Amount> lineAmount(Price price, Quantity quantity) {
  std::int64_t product = 0;
  if (__builtin_mul_overflow(price, quantity, &product)) {
    return std::nullopt;
  }
  return roundedQuotient(product, powerOfTen(kPriceDecimals + kQuantityDecimals - kAmountDecimals));
}

TaxedAmount taxed(Amount amount, Rate rate) {
  const int whole = rate.isIncluded ? 10'000 + rate.hundredths : 10'000;
  const Amount tax = roundedQuotient(amount * rate.hundredths, whole);
  return {rate.isIncluded ? amount - tax : amount, tax};
}

AmountFormats amountFormats(int flag21) {
  switch (flag21) {
    case 2:
      return {{10, 3}, {8, 3}, {12, 2}};
    case 3:
      return {{10, 4}, {8, 3}, {12, 2}};
    case 11:
      return {{10, 1}, {8, 3}, {12, 1}};
    case 12:
      return {{10, 0}, {8, 3}, {12, 0}};
    case 30:
      return {{16, 2}, {17, 3}, {17, 2}};
    default:
      return {{10, 2}, {8, 3}, {12, 2}};
  }
}

std::optional<std::int64_t> takeDigits(std::string_view& rest, std::size_t count) {
  const std::string_view digits = rest.substr(0, count);
  if (digits.size() < count || !areDigits(digits)) {
    return std::nullopt;
  }
  rest.remove_prefix(count);
  return numberOf(digits);
}

std::optional<std::int64_t> takeField(std::string_view& rest, FieldFormat format, int decimals) {
  const std::optional<std::int64_t> number = takeDigits(rest, format.digits);
  return number ? std::optional(*number * powerOfTen(decimals - format.decimals)) : std::nullopt;
}

std::optional<std::int64_t> commaNumber(std::string_view text, int decimals) {
  const auto comma = std::min(text.find(','), text.size());
  const std::string_view whole = text.substr(0, comma);
  const std::string_view fraction = text.substr(std::min(comma + 1, text.size()));
  const auto places = static_cast<std::size_t>(decimals);
  if (whole.empty() || whole.size() > kMaxWholeDigits || fraction.size() > places ||
      !areDigits(whole) || !areDigits(fraction)) {
    return std::nullopt;
  }
  std::string padded(fraction);
  padded.resize(places, '0');
  return numberOf(whole) * powerOfTen(decimals) + numberOf(padded);
}

std::string zeroPadded(std::int64_t value, std::size_t digits) {
  const std::string text = std::to_string(value);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string amountText(Amount amount) { return fixedPoint(amount, kAmountDecimals); }

std::string priceText(Price price) {
  const std::int64_t finer = powerOfTen(kPriceDecimals - kAmountDecimals);
  return price % finer == 0 ? fixedPoint(price / finer, kAmountDecimals)
                            : fixedPoint(price, kPriceDecimals);
}

std::string plainQuantity(Quantity quantity) {
  const std::int64_t unit = powerOfTen(kQuantityDecimals);
  std::string text = std::to_string(quantity / unit) + "." +
                     zeroPadded(quantity % unit, static_cast<std::size_t>(kQuantityDecimals));
  text.erase(text.find_last_not_of('0') + 1);
  text.erase(text.find_last_not_of('.') + 1);
  return text;
}

std::string quantityText(Quantity quantity) {
  const std::int64_t unit = powerOfTen(kQuantityDecimals);
  return quantity % unit == 0 ? grouped(std::to_string(quantity / unit))
                              : fixedPoint(quantity, kQuantityDecimals);
}

}  // namespace corvid::simulator
