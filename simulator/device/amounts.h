// Money, prices and quantities as integers, their fields on the line, and their look on paper.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvid::simulator {

using Amount = std::int64_t;    // hundredths of the currency unit
using Price = std::int64_t;     // ten-thousandths of the currency unit
using Quantity = std::int64_t;  // thousandths

inline constexpr int kAmountDecimals = 2;
inline constexpr int kPriceDecimals = 4;
inline constexpr int kQuantityDecimals = 3;

// The largest amount of a document; a rate in hundredths of a percent times it still fits 64 bits.
inline constexpr Amount kMaxAmount = 99'999'999'999'999;

// The largest quantity of one line: a thousand million units.
inline constexpr Quantity kMaxQuantity = 1'000'000'000'000;

// A tax rate.
struct Rate {
  bool isIncluded = false;  // the prices include the tax; else it is added to them
  int hundredths = 0;       // hundredths of a percent, 0 to 9999
};

struct TaxedAmount {
  Amount base = 0;
  Amount tax = 0;
};

// dividend / divisor, rounded half up; dividend >= 0, divisor > 0.
[[nodiscard]] std::int64_t roundedQuotient(std::int64_t dividend, std::int64_t divisor);

// size * part / whole, rounded half up, with no overflow for amounts; 0 <= part <= whole, whole >
// 0.
[[nodiscard]] Amount roundedShare(Amount size, Amount part, Amount whole);

// Price times quantity, rounded half up to hundredths; nothing when their product does not fit.
// What is returned is below kMaxAmount.
[[nodiscard]] std::optional<Amount> lineAmount(Price price, Quantity quantity);

// Base and tax of an amount at a rate, the tax rounded half up.
[[nodiscard]] TaxedAmount taxed(Amount amount, Rate rate);

// A field of digits with implied decimals.
struct FieldFormat {
  std::size_t digits;
  int decimals;
};

struct AmountFormats {
  FieldFormat price;
  FieldFormat quantity;
  FieldFormat payment;
};

// The widths of number fields that printer flag 21 chooses.
[[nodiscard]] AmountFormats amountFormats(int flag21);

// Takes exactly `count` digits (18 at most) off the front of `rest`; nothing, and `rest` as it
// was, if they are not there.
[[nodiscard]] std::optional<std::int64_t> takeDigits(std::string_view& rest, std::size_t count);

// Takes a field off the front of `rest` and scales it to `decimals`, which the field's own must
// not exceed.
[[nodiscard]] std::optional<std::int64_t> takeField(std::string_view& rest, FieldFormat format,
                                                    int decimals);

// The whole text as digits with a decimal comma ("12,50"), scaled to `decimals`. Nothing for a
// sign, a blank, a point, more decimals than asked for, or more than 14 digits before the comma.
[[nodiscard]] std::optional<std::int64_t> commaNumber(std::string_view text, int decimals);

// Digits padded with zeros in front; never cut. value >= 0.
[[nodiscard]] std::string zeroPadded(std::int64_t value, std::size_t digits);

// "1.234,50", "-3,50".
[[nodiscard]] std::string amountText(Amount amount);
// Two decimals, or all four where the last two are not zero.
[[nodiscard]] std::string priceText(Price price);
// With a decimal point and no more decimals than it takes: "2", "2.5", "0.125".
[[nodiscard]] std::string plainQuantity(Quantity quantity);
// No decimals for a whole number, else three.
[[nodiscard]] std::string quantityText(Quantity quantity);

}  // namespace corvid::simulator
