#include "basic/date.h"

#include "basic/format.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvid {
namespace {

std::wstring stamp(double days) { return format(Date{days}, L"yyyy-mm-dd hh:nn:ss"); }

TEST(DateParts, CountForwardFromMidnightOnEitherSideOfTheZeroDate) {
  const struct {
    double days;
    const wchar_t* text;
    const char* reason;
  } kCases[] = {
      {0, L"1899-12-30 00:00:00", "zero date"},
      {1.5, L"1899-12-31 12:00:00", "after"},
      {-1.25, L"1899-12-29 06:00:00", "the fraction of a negative date counts forward"},
      {-0.25, L"1899-12-30 06:00:00", "a fraction alone is a time"},
      {45351, L"2024-02-29 00:00:00", "leap day"},
      {45351.9999999, L"2024-03-01 00:00:00", "rounds into the next day"},
      {-1.9999999, L"1899-12-30 00:00:00", "rounds into the next day before zero too"},
      {-657434, L"0100-01-01 00:00:00", "first day"},
      {2958465, L"9999-12-31 00:00:00", "last day"},
  };
  for (const auto& c : kCases) EXPECT_EQ(stamp(c.days), c.text) << c.reason;
}

TEST(DateParts, RefuseWhatIsNoDate) {
  for (const double days : {-657435.0, 2958466.0, 1e300, std::numeric_limits<double>::quiet_NaN(),
                            -std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(errorOf([&] { return toParts(Date{days}); }), 5) << days;
  }
}

TEST(DateText, IsReadInItsFixedForms) {
  const struct {
    const wchar_t* text;
    double days;
  } kCases[] = {{L"2024-05-17", 45429},
                {L"10:30", 0.4375},
                {L"12:00:30", 43230.0 / 86400},
                {L"2024-05-17 06:00", 45429.25},
                {L"1899-12-29 06:00:00", -1.25}};
  for (const auto& c : kCases) {
    const std::optional<Date> date = parseDate(c.text);
    ASSERT_TRUE(date) << c.text;
    EXPECT_DOUBLE_EQ(date->days, c.days) << c.text;
  }
}

TEST(DateText, IsRefusedWhenItNamesNoDateOrTime) {
  for (const wchar_t* text :
       {L"", L"2023-02-29", L"2024-13-01", L"2024-00-10", L"2024-01-00", L"2024-04-31",
        L"0099-01-01", L"24:00", L"10:60", L"10:30:60", L"2024-05-17 ", L" 10:30",
        L"2024-05-17  10:30", L"10:30 2024-05-17", L"2024-5-17", L"20a4-05-17", L"2024/05/17",
        L"2024-05-17 10", L"2024-05-17 10:30:1"}) {
    EXPECT_FALSE(parseDate(text)) << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace corvid
