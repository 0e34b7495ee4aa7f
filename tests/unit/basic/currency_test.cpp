#include "basic/currency.h"

#include "support/error_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvid {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

TEST(CurrencyConversion, RoundsHalfToEvenAtTheFourthDecimal) {
  const struct {
    double value;
    std::int64_t units;
  } kCases[] = {{12.5, 125000},
                {0.00005, 0},
                {0.00015, 2},
                {-0.00015, -2},
                {0.00025, 2},
                {1.00005, 10000},
                {922337203685477.0, 9223372036854770000}};
  for (const auto& c : kCases) EXPECT_EQ(Currency::fromDouble(c.value).units(), c.units) << c.value;
}

TEST(CurrencyConversion, OverflowsOneUnitBeyondEitherEnd) {
  const Decimal unit = Decimal::fromUnscaled(1, 4);
  const Decimal most = Currency::fromUnits(kMost).toDecimal();
  const Decimal least = Currency::fromUnits(kLeast).toDecimal();
  EXPECT_EQ(Currency::fromDecimal(most).units(), kMost);
  EXPECT_EQ(Currency::fromDecimal(least).units(), kLeast);
  EXPECT_EQ(errorOf([&] { return Currency::fromDecimal(most + unit); }), 6);
  EXPECT_EQ(errorOf([&] { return Currency::fromDecimal(least - unit); }), 6);
  EXPECT_EQ(errorOf([] { return Currency::fromDouble(1e300); }), 6);
}

TEST(PrinterAmount, IsDividedIntoHundredths) {
  const struct {
    std::int64_t hundredthUnits;
    std::int64_t units;
    const char* reason;
  } kCases[] = {
      {12345670000, 123456700, "12345.67"},
      {-10000, -100, "negative"},
      {150, 2, "half to the even digit above"},
      {250, 2, "half to the even digit below"},
      {9223372036854770000, 92233720368547700, "the longest whole amount"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(fromHundredths(Currency::fromUnits(c.hundredthUnits)).units(), c.units) << c.reason;
  }
}

TEST(PrinterAmount, LosesOnlyTheLastDigitsAtTheTypesEnd) {
  EXPECT_NEAR(fromHundredths(Currency::fromUnits(kMost)).toDouble(), 9223372036854.7758, 0.01);
  EXPECT_NEAR(fromHundredths(Currency::fromUnits(kLeast)).toDouble(), -9223372036854.7758, 0.01);
}

}  // namespace
}  // namespace corvid
