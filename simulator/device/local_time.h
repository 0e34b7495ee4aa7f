// The printer's calendar clock.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvid::simulator {

struct LocalTime {
  int year = 2000;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Asked whenever the printer needs the time; a test moves what it returns.
using Clock = std::function<LocalTime()>;

// "2026-03-14 10:30:15"; nothing for any other shape, or a day or time that does not exist.
[[nodiscard]] std::optional<LocalTime> parsedTime(std::string_view text);

// A date and time that exist, in the years 1970 to 9999.
[[nodiscard]] bool exists(const LocalTime& time);

// The time so many seconds later, or earlier. Every day has 86,400 seconds.
[[nodiscard]] LocalTime shifted(const LocalTime& time, std::int64_t seconds);
[[nodiscard]] std::int64_t secondsBetween(const LocalTime& from, const LocalTime& to);

[[nodiscard]] int dateNumber(const LocalTime& time);         // 260314
[[nodiscard]] std::string wireDate(const LocalTime& time);   // 260314
[[nodiscard]] std::string wireTime(const LocalTime& time);   // 103015
[[nodiscard]] std::string paperDate(const LocalTime& time);  // 14-03-2026
[[nodiscard]] std::string paperTime(const LocalTime& time);  // 10:30

// The time of the machine's own clock and time zone; the platform's file defines it.
[[nodiscard]] LocalTime systemTime();

}  // namespace corvid::simulator
