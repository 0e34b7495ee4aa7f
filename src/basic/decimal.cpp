#include "basic/decimal.h"

#include "basic/conversions.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

namespace corvid {
namespace {

// Magnitudes here are unsigned whole numbers in digits, leading zeros allowed.

void padFront(std::string& digits, std::size_t length) {
  digits.insert(0, length - std::min(length, digits.size()), '0');
}

std::string sumOf(std::string a, std::string b) {
  const std::size_t length = std::max(a.size(), b.size()) + 1;
  padFront(a, length);
  padFront(b, length);
  int carry = 0;
  for (std::size_t i = length; i-- > 0;) {
    const int digit = (a[i] - '0') + (b[i] - '0') + carry;
    carry = digit / 10;
    a[i] = static_cast<char>('0' + (digit % 10));
  }
  return a;
}

// The larger one comes first.
std::string differenceOf(std::string larger, std::string smaller) {
  padFront(smaller, larger.size());
  int borrow = 0;
  for (std::size_t i = larger.size(); i-- > 0;) {
    const int digit = larger[i] - smaller[i] - borrow;
    borrow = digit < 0 ? 1 : 0;
    larger[i] = static_cast<char>('0' + digit + (10 * borrow));
  }
  return larger;
}

bool isSmaller(std::string a, std::string b) {
  const std::size_t length = std::max(a.size(), b.size());
  padFront(a, length);
  padFront(b, length);
  return a < b;
}

std::string withTrailingZeros(const std::string& digits, int count) {
  return digits + std::string(static_cast<std::size_t>(count), '0');
}

// Whether the type holds the number in that text, which then is the value.
template <typename Number>
bool readInto(Number& value, const std::string& text) {
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  return read.ec == std::errc{};
}

// Cuts a number's last digits off for rounding.
struct Cut {
  std::string kept;     // at least one digit
  std::string dropped;  // the digits after the new end
};

Cut cutAfter(std::string digits, int count) {
  const auto dropped = static_cast<std::size_t>(count);
  padFront(digits, dropped + 1);
  const std::size_t end = digits.size() - dropped;
  return {digits.substr(0, end), digits.substr(end)};
}

}  // namespace

Decimal::Decimal(bool negative, std::string digits, int decimals)
    : negative_(negative), digits_(std::move(digits)), decimals_(decimals) {
  digits_.erase(0, std::min(digits_.find_first_not_of('0'), digits_.size()));
  if (digits_.empty()) {
    negative_ = false;
    decimals_ = 0;
    return;
  }
  digits_ = withTrailingZeros(digits_, std::max(-decimals_, 0));
  decimals_ = std::max(decimals_, 0);
  while (decimals_ > 0 && digits_.back() == '0') {
    digits_.pop_back();
    --decimals_;
  }
}

Decimal Decimal::fromDouble(double value, int significantDigits) {
  value = requireFinite(value);
  // "d.ddde-xxx": one digit, a point, the others, the exponent.
  std::array<char, 64> buffer{};
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                     std::chars_format::scientific, significantDigits - 1);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
  const std::size_t mark = text.find('e');
  int exponent = 0;
  const std::size_t exponentStart = text[mark + 1] == '+' ? mark + 2 : mark + 1;
  std::from_chars(text.data() + exponentStart, text.data() + text.size(), exponent);
  std::string digits(text.substr(0, mark));
  std::erase(digits, '.');
  return {std::signbit(value), digits, significantDigits - 1 - exponent};
}

Decimal Decimal::fromInteger(std::int64_t value) { return fromUnscaled(value, 0); }

Decimal Decimal::fromUnscaled(std::int64_t unscaled, int decimals) {
  std::string digits = std::to_string(unscaled);
  const bool negative = digits.starts_with('-');
  if (negative) digits.erase(0, 1);
  return {negative, std::move(digits), decimals};
}

std::optional<Decimal> Decimal::parse(std::wstring_view text) {
  const bool negative = text.starts_with(L'-');
  if (negative || text.starts_with(L'+')) text.remove_prefix(1);
  std::string digits;
  std::optional<std::size_t> point;
  for (const wchar_t character : text) {
    if (isDigit(character)) {
      digits += static_cast<char>(character);
    } else if (character == L'.' && !point) {
      point = digits.size();
    } else {
      return std::nullopt;
    }
  }
  if (digits.empty()) return std::nullopt;
  const auto decimals = static_cast<int>(digits.size() - point.value_or(digits.size()));
  return Decimal(negative, std::move(digits), decimals);
}

Decimal Decimal::operator-() const { return {!negative_, digits_, decimals_}; }

Decimal Decimal::absolute() const { return {false, digits_, decimals_}; }

Decimal Decimal::operator+(const Decimal& other) const {
  const int decimals = std::max(decimals_, other.decimals_);
  const std::string mine = withTrailingZeros(digits_, decimals - decimals_);
  const std::string theirs = withTrailingZeros(other.digits_, decimals - other.decimals_);
  if (negative_ == other.negative_) return {negative_, sumOf(mine, theirs), decimals};
  if (isSmaller(mine, theirs)) return {other.negative_, differenceOf(theirs, mine), decimals};
  return {negative_, differenceOf(mine, theirs), decimals};
}

Decimal Decimal::operator-(const Decimal& other) const { return *this + -other; }

Decimal Decimal::timesPowerOfTen(int power) const {
  return {negative_, digits_, decimals_ - power};
}

Decimal Decimal::floor() const {
  if (decimals_ == 0) return *this;
  const Cut cut = cutAfter(digits_, decimals_);
  return {negative_, negative_ ? sumOf(cut.kept, "1") : cut.kept, 0};
}

Decimal Decimal::roundedHalfAway(int decimals) const {
  if (decimals >= decimals_) return *this;
  const Cut cut = cutAfter(digits_, decimals_ - decimals);
  const bool up = cut.dropped.front() >= '5';
  return {negative_, up ? sumOf(cut.kept, "1") : cut.kept, decimals};
}

Decimal Decimal::roundedHalfEven(int decimals) const {
  if (decimals >= decimals_) return *this;
  const Cut cut = cutAfter(digits_, decimals_ - decimals);
  // No zero ends the decimals, so a half is a five alone.
  const bool staysOnHalf = cut.dropped == "5" && (cut.kept.back() - '0') % 2 == 0;
  const bool up = cut.dropped.front() >= '5' && !staysOnHalf;
  return {negative_, up ? sumOf(cut.kept, "1") : cut.kept, decimals};
}

std::strong_ordering Decimal::operator<=>(const Decimal& other) const {
  const Decimal difference = *this - other;
  if (difference.isZero()) return std::strong_ordering::equal;
  return difference.negative_ ? std::strong_ordering::less : std::strong_ordering::greater;
}

double Decimal::toDouble() const {
  if (isZero()) return 0;
  const std::string text = (negative_ ? "-" : "") + digits_ + "e" + std::to_string(-decimals_);
  double value = 0;
  if (readInto(value, text)) return value;
  if (magnitude() > 0) throw overflow();
  return 0;
}

std::int64_t Decimal::toInt64() const {
  const Decimal whole = roundedHalfEven(0);
  if (whole.isZero()) return 0;
  const std::string text = (whole.negative_ ? "-" : "") + whole.digits_;
  std::int64_t value = 0;
  if (!readInto(value, text)) throw overflow();
  return value;
}

int Decimal::magnitude() const noexcept {
  return isZero() ? 0 : static_cast<int>(digits_.size()) - 1 - decimals_;
}

std::wstring Decimal::integerDigits() const {
  return {digits_.begin(), digits_.end() - std::min(decimals_, static_cast<int>(digits_.size()))};
}

std::wstring Decimal::fractionDigits() const {
  std::string digits = digits_;
  padFront(digits, static_cast<std::size_t>(decimals_));
  return {digits.end() - decimals_, digits.end()};
}

}  // namespace corvid
