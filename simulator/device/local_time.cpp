#include "simulator/device/local_time.h"

#include "simulator/device/amounts.h"

#include <chrono>

namespace corvid::simulator {
namespace {

using Seconds = std::chrono::sys_seconds;

std::chrono::year_month_day dateOf(const LocalTime& time) {
  return {std::chrono::year(time.year), std::chrono::month(static_cast<unsigned>(time.month)),
          std::chrono::day(static_cast<unsigned>(time.day))};
}

Seconds secondsOf(const LocalTime& time) {
  return std::chrono::sys_days(dateOf(time)) + std::chrono::hours(time.hour) +
         std::chrono::minutes(time.minute) + std::chrono::seconds(time.second);
}

LocalTime timeOf(Seconds seconds) {
  const auto day = std::chrono::floor<std::chrono::days>(seconds);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(seconds - day);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

bool isBelow(int value, int limit) { return value >= 0 && value < limit; }

// Reads `text` along a picture in which each run of '0' is a number and all else stands for itself.
bool readAlong(std::string_view picture, std::string_view text, std::initializer_list<int*> parts) {
  for (int* part : parts) {
    const auto width = std::min(picture.find_first_not_of('0'), picture.size());
    const auto number = takeDigits(text, width);
    picture.remove_prefix(width);
    if (!number || text.substr(0, 1) != picture.substr(0, 1)) {
      return false;
    }
    *part = static_cast<int>(*number);
    picture.remove_prefix(picture.empty() ? 0 : 1);
    text.remove_prefix(text.empty() ? 0 : 1);
  }
  return text.empty();
}

std::string two(int number) { return zeroPadded(number % 100, 2); }

}  // namespace

std::optional<LocalTime> parsedTime(std::string_view text) {
  LocalTime time;
  const bool fits =
      readAlong("0000-00-00 00:00:00", text,
                {&time.year, &time.month, &time.day, &time.hour, &time.minute, &time.second});
  return fits && exists(time) ? std::optional(time) : std::nullopt;
}

bool exists(const LocalTime& time) {
  return time.year >= 1970 && time.year <= 9999 && dateOf(time).ok() && isBelow(time.hour, 24) &&
         isBelow(time.minute, 60) && isBelow(time.second, 60);
}

LocalTime shifted(const LocalTime& time, std::int64_t seconds) {
  return timeOf(secondsOf(time) + std::chrono::seconds(seconds));
}

std::int64_t secondsBetween(const LocalTime& from, const LocalTime& to) {
  return (secondsOf(to) - secondsOf(from)).count();
}

int dateNumber(const LocalTime& time) {
  return time.year % 100 * 10'000 + time.month * 100 + time.day;
}

std::string wireDate(const LocalTime& time) {
  return two(time.year) + two(time.month) + two(time.day);
}

std::string wireTime(const LocalTime& time) {
  return two(time.hour) + two(time.minute) + two(time.second);
}

std::string paperDate(const LocalTime& time) {
  return two(time.day) + "-" + two(time.month) + "-" + zeroPadded(time.year, 4);
}

std::string paperTime(const LocalTime& time) { return two(time.hour) + ":" + two(time.minute); }

}  // namespace corvid::simulator
