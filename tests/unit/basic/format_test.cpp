#include "basic/format.h"

#include "support/error_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvid {
namespace {

Locale venezuelan() {
  Locale locale;
  locale.decimalSeparator = L",";
  locale.thousandsSeparator = L".";
  locale.currencyDecimalSeparator = L",";
  locale.currencyThousandsSeparator = L".";
  locale.currencySymbol = L"Bs.S";
  locale.positiveCurrencyForm = 0;
  locale.negativeCurrencyForm = 2;
  locale.shortDatePattern = L"d/M/yyyy";
  locale.timePattern = L"h:mm:ss tt";
  locale.morning = L"a. m.";
  locale.afternoon = L"p. m.";
  return locale;
}

TEST(NumberPattern, PadsGroupsAndRounds) {
  const struct {
    double value;
    const wchar_t* pattern;
    const wchar_t* text;
    const char* reason;
  } kCases[] = {
      {7, L"000", L"007", "zero fill"},
      {12345, L"00", L"12345", "never cut in front"},
      {-7, L"000", L"-007", "minus in front of the padded digits"},
      {0, L"#0", L"0", "the zero shows"},
      {0, L"#", L"", "no significant digit"},
      {7, L"0#", L"07", "after a zero every place is one"},
      {1234567, L"#,##0", L"1,234,567", "groups"},
      {-123, L"#,##0", L"-123", "no separator after the sign"},
      {1000, L"#,##0", L"1,000", "the shortest group"},
      {5, L"0,000", L"0,005", "groups the filled zeros"},
      {1000, L"###0.00", L"1000.00", "no grouping unless asked"},
      {0.5, L"###0.000", L"0.500", "decimals are filled"},
      {0.125, L"0.00", L"0.13", "half away from zero"},
      {-0.125, L"0.00", L"-0.13", "half away from zero below it"},
      {1.005, L"0.00", L"1.01", "the decimal value counts"},
      {99.999, L"#0.00", L"100.00", "carries in front"},
      {-0.001, L"0.00", L"0.00", "no minus before zero"},
      {1.5, L"0.0##", L"1.5", "open places stay empty"},
      {2.5, L"0", L"3", "no point, no decimals"},
  };
  for (const auto& c : kCases) EXPECT_EQ(format(c.value, c.pattern), c.text) << c.reason;
}

TEST(NumberPattern, TakesEveryKindOfNumber) {
  EXPECT_EQ(format(Currency::fromUnits(12345), L"0.00"), L"1.23");
  EXPECT_EQ(format(Currency::fromUnits(12350), L"0.00"), L"1.24");
  EXPECT_EQ(formatInteger(std::numeric_limits<long long>::min(), L"#,##0"),
            L"-9,223,372,036,854,775,808");
}

TEST(NumberPattern, UsesTheLocalesSeparators) {
  EXPECT_EQ(format(1234.5, L"#,##0.00", venezuelan()), L"1.234,50");
}

TEST(MoneyForm, FollowsTheLocale) {
  EXPECT_EQ(format(1234.5, L"Currency"), L"$1,234.50");
  EXPECT_EQ(format(-1234.565, L"Currency"), L"($1,234.57)");
  EXPECT_EQ(format(-0.001, L"Currency"), L"$0.00");
  EXPECT_EQ(format(-0.5, L"Currency", venezuelan()), L"Bs.S-0,50");
  Locale locale;
  locale.currencyDecimals = 0;
  EXPECT_EQ(format(1999.5, L"Currency", locale), L"$2,000");
  locale.currencyDecimals = 1;
  EXPECT_EQ(format(1999.5, L"Currency", locale), L"$1,999.5");
}

TEST(MoneyForm, KnowsEveryPlaceOfSymbolAndSign) {
  const wchar_t* const kPositive[] = {L"$1.00", L"1.00$", L"$ 1.00", L"1.00 $"};
  const wchar_t* const kNegative[] = {L"($1.00)", L"-$1.00",  L"$-1.00",   L"$1.00-",
                                      L"(1.00$)", L"-1.00$",  L"1.00-$",   L"1.00$-",
                                      L"-1.00 $", L"-$ 1.00", L"1.00 $-",  L"$ 1.00-",
                                      L"$ -1.00", L"1.00- $", L"($ 1.00)", L"(1.00 $)"};
  Locale locale;
  for (int i = 0; i < 4; ++i) {
    locale.positiveCurrencyForm = i;
    EXPECT_EQ(format(1.0, L"Currency", locale), kPositive[i]);
  }
  for (int i = 0; i < 16; ++i) {
    locale.negativeCurrencyForm = i;
    EXPECT_EQ(format(-1.0, L"Currency", locale), kNegative[i]);
  }
  locale.positiveCurrencyForm = 4;
  EXPECT_EQ(format(1.0, L"Currency", locale), L"$1.00") << "a form that does not exist";
  locale.negativeCurrencyForm = 16;
  EXPECT_EQ(format(-1.0, L"Currency", locale), L"($1.00)") << "a form that does not exist";
}

TEST(FixedPoint, IsTheIntegerPartOfTheValuePlusAHalf) {
  const struct {
    double value;
    int digits;
    int decimals;
    const wchar_t* text;
    const char* reason;
  } kCases[] = {
      {12.5, 10, 2, L"0000001250", "padded"},
      {1.005, 10, 2, L"0000000101", "the decimal value counts"},
      {1.004, 10, 2, L"0000000100", "below a half"},
      {1.0005, 8, 3, L"00001001", "three decimals"},
      {123456, 4, 2, L"12345600", "never cut"},
      {-1.5, 6, 0, L"-000001", "-1.5 + 0.5 is -1"},
      {-1.25, 6, 2, L"-000125", "minus in front of the padded digits"},
      {-0.004, 4, 2, L"0000", "no minus before zero"},
      {0, 12, 2, L"000000000000", "zero"},
      {0, 0, 0, L"", "no digits asked for"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(formatFixedPoint(Decimal::fromDouble(c.value), c.digits, c.decimals), c.text)
        << c.reason;
  }
}

TEST(DatePattern, KnowsMonthsFromMinutes) {
  const Date date = fromParts({2024, 10, 3, 4, 5, 9}).value();
  const struct {
    const wchar_t* pattern;
    const wchar_t* text;
  } kCases[] = {
      {L"dd-mm-yyyy", L"03-10-2024"},
      {L"dd-mm-yyyy hh:nn", L"03-10-2024 04:05"},
      {L"dd-mm-yyyy hh:mm:ss", L"03-10-2024 04:05:09"},
      {L"h:mm dd/mm", L"4:05 03/10"},
      {L"dd/mm hh:nn:ss", L"03/10 04:05:09"},
      {L"ddmmyy", L"031024"},
      {L"yymmdd", L"241003"},
      {L"mm/yy", L"10/24"},
      {L"hhnnss", L"040509"},
  };
  for (const auto& c : kCases) EXPECT_EQ(format(date, c.pattern), c.text) << c.pattern;
}

TEST(DateTextForm, ShowsOnlyWhatThereIs) {
  const Locale locale;
  EXPECT_EQ(toText(Date{45429}, locale), L"05/17/2024");
  EXPECT_EQ(toText(Date{45429.25}, locale), L"05/17/2024 06:00:00");
  EXPECT_EQ(toText(Date{0.25}, locale), L"06:00:00");
  EXPECT_EQ(toText(Date{0}, locale), L"00:00:00");
}

TEST(DateTextForm, FollowsTheLocalesPatterns) {
  Locale locale = venezuelan();
  EXPECT_EQ(toText(Date{45421.75}, locale), L"9/5/2024 6:00:00 p. m.");
  EXPECT_EQ(toText(Date{0}, locale), L"12:00:00 a. m.");
  EXPECT_EQ(toText(Date{0.5}, locale), L"12:00:00 p. m.");
  locale.shortDatePattern = L"dd 'd''e' MM yy";
  locale.timePattern = L"HH'h";
  EXPECT_EQ(toText(Date{45421.75}, locale), L"09 de 05 24 18h") << "quoted, and a quote left open";
  locale.shortDatePattern = L"ddd MMM yyy";
  locale.timePattern = L"hhh t";
  EXPECT_EQ(toText(Date{45421.75}, locale), L"09 05 2024 06 p") << "other counts of letters";
}

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
