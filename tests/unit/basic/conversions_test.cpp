#include "basic/conversions.h"

#include "support/error_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvid {
namespace {

TEST(IntegerConversion, RoundsHalfToEven) {
  EXPECT_EQ(toInt16(7.5), 8);
  EXPECT_EQ(toInt16(8.5), 8);
  EXPECT_EQ(toInt32(-2.5), -2);
  EXPECT_EQ(toInt32(Decimal::fromUnscaled(35, 1)), 4);
}

TEST(IntegerConversion, OverflowsOutsideTheType) {
  EXPECT_EQ(toInt16(32767.4), 32767);
  EXPECT_EQ(toInt16(-32768.5), -32768);
  EXPECT_EQ(errorOf([] { return toInt16(32767.5); }), 6);
  EXPECT_EQ(errorOf([] { return narrowToInt16(-32769); }), 6);
  EXPECT_EQ(toInt32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(errorOf([] { return toInt32(2147483648.0); }), 6);
}

TEST(PrinterNumber, AllowsBlanksAroundAndASignOnEitherSide) {
  const struct {
    const wchar_t* text;
    double value;
  } kCases[] = {{L"0000012345", 12345}, {L"  2.5 ", 2.5}, {L"-7", -7},  {L"7-", -7}, {L"+7", 7},
                {L" 12.50- ", -12.5},   {L"- 5", -5},     {L"5 -", -5}, {L".5", 0.5}};
  for (const auto& c : kCases) {
    EXPECT_EQ(parsePrinterNumber(c.text).toDouble(), c.value) << c.text;
  }
}

TEST(PrinterNumber, RefusesEverythingElse) {
  for (const wchar_t* text : {L"", L"12a", L"-7-", L"7--", L"+-7", L"1 2", L"\t7", L"7\x0003"}) {
    EXPECT_EQ(errorOf([&] { return parsePrinterNumber(text); }), 13)
        << testing::PrintToString(text);
  }
}

TEST(LeadingNumber, StopsWhereTheNumberEnds) {
  const struct {
    const wchar_t* text;
    double value;
    const char* reason;
  } kCases[] = {
      {L"7.5", 7.5, "plain"},
      {L"16%", 16, "what follows is left"},
      {L"1.5.2", 1.5, "one point"},
      {L"7,5", 7, "a comma ends it"},
      {L" 1\t6\n15 calle", 1615, "blanks anywhere"},
      {L"- 5", -5, "a blank behind the sign"},
      {L"+.5", 0.5, "no digit in front of the point"},
      {L"1E3", 1000, "exponent"},
      {L"1E12", 1e12, "of two digits"},
      {L"1E1.5", 10, "up to its point"},
      {L"1Ex", 1, "no digit where the exponent should be"},
      {L"25d-1x", 2.5, "the other exponent letter"},
      {L"1E", 1, "exponent without digits"},
      {L"1E+", 1, "exponent without digits behind its sign"},
      {L"1E-999999999999", 0, "too small for a double"},
      {L"0E999999999999", 0, "zero whatever its exponent"},
      {L"&H1AaFfZ", 0x1AAFF, "hexadecimal, from A to F in either case"},
      {L"&HFFFF", -1, "sixteen bits"},
      {L"&HFFFFFFFF", -1, "thirty-two bits, negative"},
      {L"&o178", 15, "octal"},
  };
  for (const auto& c : kCases) EXPECT_EQ(leadingNumber(c.text), c.value) << c.reason;
}

TEST(LeadingNumber, IsAbsentWithoutAFittingValue) {
  for (const wchar_t* text : {L"", L"abc", L"-", L".", L"-.e5", L"--5", L"e5", L"\r5", L"&H",
                              L"&O8", L"&5", L"1E999", L"&H100000000", L"&H10000000000000001"}) {
    EXPECT_EQ(leadingNumber(text), std::nullopt) << testing::PrintToString(text);
  }
}

TEST(BooleanText, IsAWordOrANumber) {
  for (const wchar_t* text : {L"True", L"tRUE", L" true ", L"-1", L"0.001", L"2"}) {
    EXPECT_TRUE(toBoolean(text)) << text;
  }
  for (const wchar_t* text : {L"False", L"FALSE", L"0", L"0.00", L" 0 ", L"-0"}) {
    EXPECT_FALSE(toBoolean(text)) << text;
  }
  for (const wchar_t* text : {L"", L"abc", L"Truee", L"Verdadero"}) {
    EXPECT_EQ(errorOf([&] { return toBoolean(text); }), 13) << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace corvid
