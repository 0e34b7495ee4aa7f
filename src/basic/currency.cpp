#include "basic/currency.h"

namespace corvid {
namespace {

constexpr int kDecimals = 4;
constexpr double kUnitsPerWhole = 10000;

}  // namespace

Currency Currency::fromUnits(std::int64_t tenThousandths) noexcept {
  Currency result;
  result.units_ = tenThousandths;
  return result;
}

Currency Currency::fromDecimal(const Decimal& value) {
  return fromUnits(value.timesPowerOfTen(kDecimals).toInt64());
}

Currency Currency::fromDouble(double value) { return fromDecimal(Decimal::fromDouble(value)); }

double Currency::toDouble() const noexcept { return static_cast<double>(units_) / kUnitsPerWhole; }

Decimal Currency::toDecimal() const { return Decimal::fromUnscaled(units_, kDecimals); }

Currency fromHundredths(Currency hundredths) {
  return Currency::fromDouble(hundredths.toDouble() / 100);
}

}  // namespace corvid
