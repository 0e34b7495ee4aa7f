// Exact decimal numbers of any length, so that money is rounded on the value a person reads and
// not on its binary neighbour.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvid {

// A signed decimal number: unscaled digits and the count of decimals. Immutable; every operation
// is exact unless its name says that it rounds. Zero has no sign.
class Decimal {
 public:
  Decimal() = default;

  // The value with the 15 significant digits that a double is sure of, so 1.005 is 1.005; 1 to 50
  // of them where another count is asked for (a single is sure of 7). Throws overflow (6) for
  // infinities and what is no number.
  [[nodiscard]] static Decimal fromDouble(double value, int significantDigits = 15);
  [[nodiscard]] static Decimal fromInteger(std::int64_t value);
  // unscaled x 10^-decimals; decimals from 0 up.
  [[nodiscard]] static Decimal fromUnscaled(std::int64_t unscaled, int decimals);
  // Digits with at most one point and an optional sign in front; nothing else, not even blanks.
  [[nodiscard]] static std::optional<Decimal> parse(std::wstring_view text);

  [[nodiscard]] bool isZero() const noexcept { return digits_.empty(); }
  [[nodiscard]] bool isNegative() const noexcept { return negative_; }

  [[nodiscard]] Decimal absolute() const;
  [[nodiscard]] Decimal operator-() const;
  [[nodiscard]] Decimal operator+(const Decimal& other) const;
  [[nodiscard]] Decimal operator-(const Decimal& other) const;
  // value x 10^power; power may be negative.
  [[nodiscard]] Decimal timesPowerOfTen(int power) const;
  // The largest integer that is not above the value (Int rounds toward minus infinity).
  [[nodiscard]] Decimal floor() const;
  // Rounds to that many decimals (0 and up); a half goes away from zero, or to the even digit.
  [[nodiscard]] Decimal roundedHalfAway(int decimals) const;
  [[nodiscard]] Decimal roundedHalfEven(int decimals) const;
  // By value, whatever the decimals.
  [[nodiscard]] std::strong_ordering operator<=>(const Decimal& other) const;
  // Equal values have equal digits and decimals.
  [[nodiscard]] bool operator==(const Decimal& other) const = default;

  // The nearest double; 0 for what is too small for one. Throws overflow (6) beyond its range.
  [[nodiscard]] double toDouble() const;
  // The value rounded half to even to an integer. Throws overflow (6) outside 64 bits.
  [[nodiscard]] std::int64_t toInt64() const;

  // The power of ten of the first digit: 2 for 123, -2 for 0.0123, 0 for zero.
  [[nodiscard]] int magnitude() const noexcept;
  // The digits before the decimal point, without sign or leading zeros: empty below 1.
  [[nodiscard]] std::wstring integerDigits() const;
  // The digits after the decimal point, without trailing zeros: empty for an integer.
  [[nodiscard]] std::wstring fractionDigits() const;

 private:
  // Digits may begin with zeros and decimals may be negative: the constructor makes them regular.
  Decimal(bool negative, std::string digits, int decimals);

  bool negative_ = false;
  std::string digits_;  // '0' to '9', most significant first, no leading zero; empty is zero
  int decimals_ = 0;    // 0 and up; no trailing zero digit while above 0
};

}  // namespace corvid
