#include "basic/date.h"

#include "basic/run_time_error.h"
#include "basic/text.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace corvid {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kZeroDate{std::chrono::year{1899} / 12 / 30};
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr int kSecondsPerDay = 86400;
// Widely around the days of the years above, so that the day count fits any integer.
constexpr double kManyDays = 4e6;

bool isIn(int value, int first, int last) { return value >= first && value <= last; }

year_month_day calendarOf(const DateParts& parts) {
  return std::chrono::year{parts.year} / std::chrono::month{static_cast<unsigned>(parts.month)} /
         std::chrono::day{static_cast<unsigned>(parts.day)};
}

bool isDay(const DateParts& parts) {
  return isIn(parts.year, kFirstYear, kLastYear) && isIn(parts.month, 1, 12) &&
         isIn(parts.day, 1, 31) && calendarOf(parts).ok();
}

bool isTimeOfDay(const DateParts& parts) {
  return isIn(parts.hour, 0, 23) && isIn(parts.minute, 0, 59) && isIn(parts.second, 0, 59);
}

bool hasForm(std::wstring_view text, std::wstring_view form) {
  return std::ranges::equal(text, form, [](wchar_t character, wchar_t place) {
    return place == L'0' ? isDigit(character) : character == place;
  });
}

int numberOf(std::wstring_view digits) {
  int value = 0;
  for (const wchar_t digit : digits) value = (value * 10) + (digit - L'0');
  return value;
}

bool readDay(std::wstring_view text, DateParts& parts) {
  if (!hasForm(text, L"0000-00-00")) return false;
  parts.year = numberOf(text.substr(0, 4));
  parts.month = numberOf(text.substr(5, 2));
  parts.day = numberOf(text.substr(8));
  return true;
}

bool readTime(std::wstring_view text, DateParts& parts) {
  const bool hasSeconds = hasForm(text, L"00:00:00");
  if (!hasSeconds && !hasForm(text, L"00:00")) return false;
  parts.hour = numberOf(text.substr(0, 2));
  parts.minute = numberOf(text.substr(3, 2));
  parts.second = hasSeconds ? numberOf(text.substr(6)) : 0;
  return true;
}

}  // namespace

DateParts toParts(Date date) {
  // Written so that what is not a number is refused too.
  if (!(std::fabs(date.days) < kManyDays)) throw invalidProcedureCall();
  const double whole = std::trunc(date.days);
  auto seconds = static_cast<int>(std::lround(std::fabs(date.days - whole) * kSecondsPerDay));
  auto day = static_cast<int>(whole);
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    ++day;
  }
  const year_month_day calendar{kZeroDate + days{day}};
  const int year = static_cast<int>(calendar.year());
  if (!isIn(year, kFirstYear, kLastYear)) throw invalidProcedureCall();
  return {year,
          static_cast<int>(static_cast<unsigned>(calendar.month())),
          static_cast<int>(static_cast<unsigned>(calendar.day())),
          seconds / 3600,
          seconds / 60 % 60,
          seconds % 60};
}

std::optional<Date> fromParts(const DateParts& parts) {
  if (!isDay(parts) || !isTimeOfDay(parts)) return std::nullopt;
  const auto day = static_cast<int>((sys_days{calendarOf(parts)} - kZeroDate).count());
  const int seconds = (((parts.hour * 60) + parts.minute) * 60) + parts.second;
  const double fraction = static_cast<double>(seconds) / kSecondsPerDay;
  return Date{day < 0 ? day - fraction : day + fraction};
}

std::optional<Date> parseDate(std::wstring_view text) {
  DateParts parts;
  const std::size_t blank = text.find(L' ');
  const bool isRead =
      blank == std::wstring_view::npos
          ? readDay(text, parts) || readTime(text, parts)
          : readDay(text.substr(0, blank), parts) && readTime(text.substr(blank + 1), parts);
  return isRead ? fromParts(parts) : std::nullopt;
}

}  // namespace corvid
