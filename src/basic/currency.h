// Currency: a 64-bit count of ten-thousandths.
#pragma once

#include "basic/decimal.h"

#include <compare>
#include <cstdint>

namespace corvid {

// Money as the automation world keeps it: four decimals, about +-922,337,203,685,477.5807.
class Currency {
 public:
  Currency() = default;

  [[nodiscard]] static Currency fromUnits(std::int64_t tenThousandths) noexcept;
  // Rounds half to even at the fourth decimal. Throws overflow (6) beyond the type's range.
  [[nodiscard]] static Currency fromDecimal(const Decimal& value);
  // As fromDecimal of the double's 15 significant digits.
  [[nodiscard]] static Currency fromDouble(double value);

  [[nodiscard]] std::int64_t units() const noexcept { return units_; }
  [[nodiscard]] double toDouble() const noexcept;
  [[nodiscard]] Decimal toDecimal() const;

  auto operator<=>(const Currency&) const = default;

 private:
  std::int64_t units_ = 0;
};

// A printer's amount in hundredths: divides as a double and converts back, half to even at the
// fourth decimal (as a double's nearest value, so magnitudes at the type's end lose digits).
[[nodiscard]] Currency fromHundredths(Currency hundredths);

}  // namespace corvid
