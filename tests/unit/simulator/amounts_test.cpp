#include "simulator/device/amounts.h"

#include "simulator/device/local_time.h"
#include "simulator/line/bytes.h"

#include <gtest/gtest.h>

namespace corvid::simulator {
namespace {

TEST(Amounts, LineAmountRoundsHalfUpToHundredths) {
  const struct {
    Price price;
    Quantity quantity;
    std::optional<Amount> amount;
    const char* reason;
  } kCases[] = {
      {125'000, 2000, 2500, "a whole product"},
      {33'300, 500, 167, "1.665 goes up"},
      {33'200, 500, 166, "exact hundredths stay"},
      {49, 1000, 0, "0.0049 is below half a hundredth"},
      {50, 1000, 1, "0.0050 is half a hundredth"},
      {9'999'999'999'999'900, 100'000, std::nullopt, "the product overflows"},
      {1'000'000'000'000'000'000, 1000, std::nullopt, "the widest price overflows"},
      {9'200'000'000'000'000'000, 1, 92'000'000'000'000, "the largest product that fits"},
  };
  for (const auto& c : kCases) EXPECT_EQ(lineAmount(c.price, c.quantity), c.amount) << c.reason;
}

TEST(Amounts, TaxIsAddedToOrTakenFromTheAmount) {
  const struct {
    Amount amount;
    Rate rate;
    Amount base;
    Amount tax;
    const char* reason;
  } kCases[] = {
      {2500, {false, 1600}, 2500, 400, "added, exact"},
      {3, {false, 1600}, 3, 0, "0.48 hundredths go down"},
      {25, {false, 1000}, 25, 3, "2.5 hundredths go up"},
      {1160, {true, 1600}, 1000, 160, "included, exact"},
      {100, {true, 1600}, 86, 14, "13.79 hundredths go up, and the base is the rest"},
      {kMaxAmount, {false, 9999}, kMaxAmount, 99'989'999'999'999, "no overflow at the end"},
  };
  for (const auto& c : kCases) {
    const TaxedAmount sum = taxed(c.amount, c.rate);
    EXPECT_EQ(sum.base, c.base) << c.reason;
    EXPECT_EQ(sum.tax, c.tax) << c.reason;
  }
}

TEST(Amounts, ShareIsExactWhereTheProductDoesNotFit) {
  EXPECT_EQ(roundedShare(100, 1, 3), 33);
  EXPECT_EQ(roundedShare(1, 1, 2), 1);
  EXPECT_EQ(roundedShare(kMaxAmount, kMaxAmount - 1, kMaxAmount), kMaxAmount - 1);
  EXPECT_EQ(roundedShare(kMaxAmount, 1, 2), 50'000'000'000'000);
}

TEST(Amounts, CommaNumbersAreReadStrictly) {
  const struct {
    const char* text;
    std::optional<std::int64_t> number;
    const char* reason;
  } kCases[] = {
      {"12,50", 1250, "two decimals"},
      {"12", 1200, "none"},
      {"0,5", 50, "fewer decimals than asked for"},
      {"1000,00", 100'000, "no grouping"},
      {"99999999999999,99", 9'999'999'999'999'999, "the longest"},
      {"999999999999999,99", std::nullopt, "too long to fit every scale"},
      {"12,505", std::nullopt, "more decimals than asked for"},
      {"12.50", std::nullopt, "a point"},
      {"-12,50", std::nullopt, "a sign"},
      {" 12,50", std::nullopt, "a blank"},
      {",50", std::nullopt, "no whole part"},
      {"1,2,3", std::nullopt, "two commas"},
      {"", std::nullopt, "nothing"},
  };
  for (const auto& c : kCases) EXPECT_EQ(commaNumber(c.text, 2), c.number) << c.reason;
}

TEST(Amounts, TextsForThePaper) {
  EXPECT_EQ(amountText(123'456'789), "1.234.567,89");
  EXPECT_EQ(amountText(-5), "-0,05");
  EXPECT_EQ(amountText(100'000), "1.000,00");
  EXPECT_EQ(amountText(99'999), "999,99");
  EXPECT_EQ(priceText(125'000), "12,50");
  EXPECT_EQ(priceText(12'345), "1,2345");
  EXPECT_EQ(quantityText(2000), "2");
  EXPECT_EQ(quantityText(1500), "1,500");
}

TEST(Clock, OnlyTimesThatExistAreRead) {
  EXPECT_TRUE(parsedTime("2028-02-29 23:59:59"));
  for (const char* text : {"2026-02-29 10:30:15", "2026-03-14 24:00:00", "2026-03-14 10:60:00",
                           "2026-03-14", "2026-03-14 10:30:15 ", "2026/03/14 10:30:15", ""}) {
    EXPECT_FALSE(parsedTime(text)) << text;
  }
  const LocalTime time = *parsedTime("2026-03-04 01:02:03");
  EXPECT_EQ(wireDate(time) + wireTime(time), "260304010203");
  EXPECT_EQ(paperDate(time) + " " + paperTime(time), "04-03-2026 01:02");
}

TEST(Bytes, ReadableFormKeepsEveryByteApart) {
  EXPECT_EQ(readable("\x02w\x03t"), "[STX]w[ETX]t");
  EXPECT_EQ(readable("a b\n\x7F\x06\x15\x17\x04\x05"), "a b[010][127][ACK][NAK][ETB][EOT][ENQ]");
  EXPECT_EQ(readable("\xD1\x80\xA0"), "\xC3\x91\xE2\x82\xAC\xC2\xA0") << "upper half as UTF-8";
  EXPECT_EQ(hexadecimal("\x02\xA0"), "02 A0");
}

TEST(Bytes, EscapesAreReversedOrRefused) {
  EXPECT_EQ(unescaped(R"(A\nB\\C\x20\xfF)"), "A\nB\\C \xFF");
  for (const char* text : {"\\", "\\q", "\\x", "\\x1", "\\xG1", "\\x1G"}) {
    EXPECT_EQ(unescaped(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace corvid::simulator
