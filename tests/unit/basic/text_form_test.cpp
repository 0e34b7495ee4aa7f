#include "basic/format.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvid {
namespace {

TEST(NumberTextForm, ShowsTheDigitsThatAreSure) {
  const struct {
    double value;
    const wchar_t* text;
  } kDoubles[] = {{0, L"0"},
                  {-0.0, L"0"},
                  {0.5, L"0.5"},
                  {-16, L"-16"},
                  {0.1 + 0.2, L"0.3"},
                  {100000000000000, L"100000000000000"},
                  {999999999999999, L"999999999999999"},
                  {999999999999999.9, L"1E+15"},
                  {-1.5e15, L"-1.5E+15"},
                  {0.0001, L"0.0001"},
                  {0.00001, L"1E-05"},
                  {1.25e-100, L"1.25E-100"}};
  for (const auto& c : kDoubles) EXPECT_EQ(toText(c.value, Locale{}), c.text);

  const struct {
    float value;
    const wchar_t* text;
  } kFloats[] = {
      {31980.12F, L"31980.12"}, {0.3F, L"0.3"}, {9999999.F, L"9999999"}, {1e7F, L"1E+07"}};
  for (const auto& c : kFloats) EXPECT_EQ(toText(c.value, Locale{}), c.text);
}

TEST(NumberTextForm, UsesTheLocalesPointAndNoGrouping) {
  Locale locale;
  locale.decimalSeparator = L",";
  EXPECT_EQ(toText(12345.5, locale), L"12345,5");
  EXPECT_EQ(toText(1.5e20, locale), L"1,5E+20");
  EXPECT_EQ(toText(Currency::fromUnits(-12345600), locale), L"-1234,56");
  EXPECT_EQ(toText(Currency::fromUnits(5), locale), L"0,0005");
}

TEST(NumberTextForm, HasNoneForInfinity) {
  EXPECT_EQ(errorOf([] { return toText(std::numeric_limits<double>::infinity(), Locale{}); }), 6);
}

TEST(HexadecimalForm, IsTwosComplementInUpperCase) {
  EXPECT_EQ(toHex(0), L"0");
  EXPECT_EQ(toHex(0x5FA), L"5FA");
  EXPECT_EQ(toHex(-1), L"FFFFFFFF");
}

}  // namespace
}  // namespace corvid
