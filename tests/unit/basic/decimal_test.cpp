// Numbers of any length, and the amounts made of them.
#include "basic/currency.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace corvid {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::wstring textOf(const Decimal& value) {
  const std::wstring sign = value.isNegative() ? L"-" : L"";
  return sign + value.integerDigits() + L"." + value.fractionDigits();
}

Decimal dec(const wchar_t* text) { return Decimal::parse(text).value(); }

TEST(DecimalFromDouble, CountsByFifteenSignificantDigits) {
  const struct {
    double value;
    const wchar_t* text;
    const char* reason;
  } kCases[] = {
      {1.005, L"1.005", "the binary neighbour below"},
      {0.1 + 0.2, L".3", "a sum's noise"},
      {-8.2, L"-8.2", "sign"},
      {-0.0, L".", "zero has no sign"},
      {123456789012345.0, L"123456789012345.", "all fifteen digits in front"},
      {1e20, L"100000000000000000000.", "zeros to fill in front"},
      {1.5e-7, L".00000015", "zeros to fill behind"},
      {0.9999999999999999, L"1.", "carries into a new digit"},
  };
  for (const auto& c : kCases) EXPECT_EQ(textOf(Decimal::fromDouble(c.value)), c.text) << c.reason;
}

TEST(DecimalFromDouble, RefusesWhatIsNoNumber) {
  EXPECT_EQ(errorOf([] { return Decimal::fromDouble(kInfinity); }), 6);
  EXPECT_EQ(errorOf([] { return Decimal::fromDouble(std::numeric_limits<double>::quiet_NaN()); }),
            6);
}

TEST(DecimalParse, AcceptsOneSignInFrontAndOnePoint) {
  EXPECT_EQ(textOf(dec(L"+007.50")), L"7.5");
  EXPECT_EQ(textOf(dec(L"-.5")), L"-.5");
  EXPECT_EQ(textOf(dec(L"5.")), L"5.");
  EXPECT_EQ(textOf(dec(L"-0.00")), L".");
  for (const wchar_t* text :
       {L"", L"-", L".", L"1.2.3", L"1,5", L" 1", L"1 ", L"1-", L"1e5", L"--1", L"\u0661"}) {
    EXPECT_FALSE(Decimal::parse(text)) << testing::PrintToString(text);
  }
}

TEST(DecimalArithmetic, AlignsDecimalsAndSigns) {
  const struct {
    const wchar_t* a;
    const wchar_t* b;
    const wchar_t* sum;
    const wchar_t* difference;
  } kCases[] = {
      {L"0.005", L"99.995", L"100.", L"-99.99"},
      {L"-1.5", L"0.25", L"-1.25", L"-1.75"},
      {L"10", L"-10", L".", L"20."},
      {L"99999999999999999999", L"1", L"100000000000000000000.", L"99999999999999999998."},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(textOf(dec(c.a) + dec(c.b)), c.sum);
    EXPECT_EQ(textOf(dec(c.a) - dec(c.b)), c.difference);
  }
}

TEST(DecimalRounding, DiffersOnHalvesAndFloorGoesDown) {
  const struct {
    const wchar_t* value;
    int decimals;
    const wchar_t* away;
    const wchar_t* even;
  } kCases[] = {
      {L"0.125", 2, L".13", L".12"},  {L"-0.125", 2, L"-.13", L"-.12"},
      {L"0.135", 2, L".14", L".14"},  {L"0.12501", 2, L".13", L".13"},
      {L"0.5", 0, L"1.", L"."},       {L"1.5", 0, L"2.", L"2."},
      {L"0.04", 0, L".", L"."},       {L"-0.001", 2, L".", L"."},
      {L"9.995", 2, L"10.", L"10."},  {L"0.0005", 2, L".", L"."},
      {L"12.3", 5, L"12.3", L"12.3"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(textOf(dec(c.value).roundedHalfAway(c.decimals)), c.away) << c.value;
    EXPECT_EQ(textOf(dec(c.value).roundedHalfEven(c.decimals)), c.even) << c.value;
  }
  EXPECT_EQ(textOf(dec(L"-0.01").floor()), L"-1.");
  EXPECT_EQ(textOf(dec(L"-2").floor()), L"-2.");
  EXPECT_EQ(textOf(dec(L"2.99").floor()), L"2.");
}

TEST(DecimalComparison, OrdersAcrossSignsAndLengths) {
  EXPECT_GT(dec(L"8.1"), dec(L"8"));
  EXPECT_LT(dec(L"-10"), dec(L"-9.5"));
  EXPECT_EQ(dec(L"8.00"), dec(L"8"));
  EXPECT_EQ(textOf(Decimal()), textOf(dec(L"0")));
}

TEST(DecimalPowers, ShiftThePointEitherWay) {
  EXPECT_EQ(textOf(dec(L"1.2345").timesPowerOfTen(2)), L"123.45");
  EXPECT_EQ(textOf(dec(L"1.2").timesPowerOfTen(4)), L"12000.");
  EXPECT_EQ(textOf(dec(L"12").timesPowerOfTen(-4)), L".0012");
  EXPECT_EQ(dec(L"0.0123").magnitude(), -2);
  EXPECT_EQ(dec(L"123.4").magnitude(), 2);
}

TEST(DecimalToInt64, ReachesBothEndsAndNoFurther) {
  EXPECT_EQ(dec(L"9223372036854775807.4").toInt64(), kMost);
  EXPECT_EQ(dec(L"-9223372036854775808.5").toInt64(), kLeast);
  EXPECT_EQ(errorOf([] { return dec(L"9223372036854775807.5").toInt64(); }), 6);
  EXPECT_EQ(errorOf([] { return dec(L"-9223372036854775809").toInt64(); }), 6);
  EXPECT_EQ(Decimal::fromInteger(kLeast).toInt64(), kLeast);
}

TEST(DecimalToDouble, IsTheNearestAndOverflowsBeyondTheType) {
  EXPECT_EQ(dec(L"-12345.67").toDouble(), -12345.67);
  EXPECT_EQ(Decimal::fromInteger(1).timesPowerOfTen(-400).toDouble(), 0);
  EXPECT_EQ(errorOf([] { return Decimal::fromInteger(1).timesPowerOfTen(400).toDouble(); }), 6);
}

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

}  // namespace
}  // namespace corvid
