// Dates as automation doubles: days since 30 December 1899, the time of day as the fraction.
#pragma once

#include <compare>
#include <optional>
#include <string_view>

namespace corvid {

struct Date {
  double days = 0;  // 0 is the zero date, 1899-12-30 00:00

  auto operator<=>(const Date&) const = default;
};

struct DateParts {
  int year = 1899;  // 100 to 9999
  int month = 12;   // 1 to 12
  int day = 30;     // 1 to 31
  int hour = 0;     // 0 to 23
  int minute = 0;   // 0 to 59
  int second = 0;   // 0 to 59
};

// The calendar parts, rounded to the nearest second. Before the zero date the fraction still
// counts forward from midnight, as the automation type has it: -1.25 is 1899-12-29 06:00. Throws
// error 5 outside the years 100 to 9999.
[[nodiscard]] DateParts toParts(Date date);
// Nothing when the parts name no day or no time of day.
[[nodiscard]] std::optional<Date> fromParts(const DateParts& parts);
// Reads "yyyy-mm-dd", "hh:mm", "hh:mm:ss", or a date, a blank and a time; digits only, in any
// locale. A time alone lies on the zero date. Nothing for anything else, and for no text.
[[nodiscard]] std::optional<Date> parseDate(std::wstring_view text);

}  // namespace corvid
