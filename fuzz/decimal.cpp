// Arithmetic and rounding of decimals: two numbers and a count of decimals, a line each.
#include "basic/decimal.h"

#include "basic/conversions.h"
#include "input.h"
#include "support/error_of.h"

#include <limits>

namespace corvid {
namespace {

using fuzz::require;

std::wstring textOf(const Decimal& value) {
  return (value.isNegative() ? L"-0" : L"0") + value.integerDigits() + L"." +
         value.fractionDigits();
}

void checkRounding(const Decimal& value, int decimals) {
  const Decimal half = Decimal::fromUnscaled(5, decimals + 1);
  for (const Decimal& rounded :
       {value.roundedHalfAway(decimals), value.roundedHalfEven(decimals)}) {
    const Decimal scaled = rounded.timesPowerOfTen(decimals);
    require(scaled == scaled.floor(), "a rounded number has no more decimals");
    require((value - rounded).absolute() <= half, "rounding moves by half a unit at most");
  }
  const Decimal away = value.roundedHalfAway(decimals);
  require((value - away).absolute() < half || away.absolute() >= value.absolute(),
          "a half goes away from zero");
  require(away == -(-value).roundedHalfAway(decimals), "rounding does not depend on the sign");
  const Decimal floor = value.floor();
  require(floor <= value && value < floor + Decimal::fromInteger(1), "the floor is just below");
}

void checkSums(const Decimal& a, const Decimal& b) {
  require(a + b == b + a && (a + b) - b == a, "sums and differences are exact");
  require((a < b) == (b > a) && (a < b) == (a - b).isNegative(), "the order is that of values");
  require((a <=> b == 0) == (a == b), "equal values are equal");
}

void checkConversions(const Decimal& value) {
  require(Decimal::parse(textOf(value)) == value, "a number's digits are the number");
  const int shift = value.magnitude();
  require(value.timesPowerOfTen(shift).timesPowerOfTen(-shift) == value, "shifting is exact");
  std::int64_t whole = 0;
  const int error = errorOf([&] { return whole = value.toInt64(); });
  const Decimal even = value.roundedHalfEven(0);
  const bool fits = even >= Decimal::fromInteger(std::numeric_limits<std::int64_t>::min()) &&
                    even <= Decimal::fromInteger(std::numeric_limits<std::int64_t>::max());
  require(error == (fits ? 0 : 6), "what does not fit 64 bits is an overflow");
  require(!fits || Decimal::fromInteger(whole) == even, "an integer is the rounded value");
}

void checkDouble(const Decimal& value) {
  const int digits = value.magnitude() + 1 + static_cast<int>(value.fractionDigits().size());
  if (digits > 15 || std::abs(value.magnitude()) > 300) return;
  require(Decimal::fromDouble(value.toDouble()) == value, "a double keeps fifteen digits");
}

}  // namespace
}  // namespace corvid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid;
  fuzz::Input input(data, size);
  const std::optional<Decimal> a = Decimal::parse(input.text());
  const std::optional<Decimal> b = Decimal::parse(input.text());
  const int decimals = input.number(0, 20);
  if (!a) return -1;
  checkRounding(*a, decimals);
  checkConversions(*a);
  checkDouble(*a);
  if (b) checkSums(*a, *b);
  return 0;
}
