// The system's clock, against itself.
#include "windows/clock.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <tuple>

namespace corvid {
namespace {

TEST(SystemClock, TellsTheLocalDateAndTimeOfDay) {
  SYSTEMTIME before{};
  SYSTEMTIME after{};
  DateParts parts;
  float seconds = 0;
  do {
    GetLocalTime(&before);
    parts = toParts(WindowsClock().now());
    seconds = WindowsClock().secondsSinceMidnight();
    GetLocalTime(&after);
  } while (before.wMinute != after.wMinute);
  EXPECT_EQ(std::tie(parts.year, parts.month, parts.day),
            std::make_tuple(before.wYear, before.wMonth, before.wDay));
  EXPECT_EQ(60 * parts.hour + parts.minute, 60 * before.wHour + before.wMinute);
  EXPECT_EQ(static_cast<int>(seconds) / 60, 60 * before.wHour + before.wMinute);
}

// Where the system has no such timer, or no such library, false is an answer too; nothing may hang.
TEST(SystemSleep, LastsAboutWhatItShould) {
  WindowsClock clock;
  WindowsSleepCalls calls;
  const double start = clock.monotonicSeconds();
  calls.sleep(1);
  const bool hasTimer = calls.sleepByTimer() && calls.sleepByTimer();
  const bool isFine = calls.refineTicks();
  if (isFine) calls.restoreTicks();
  const double seconds = clock.monotonicSeconds() - start;
  EXPECT_GE(seconds, hasTimer ? 0.0025 : 0.0009);
  EXPECT_LT(seconds, 1);
}

}  // namespace
}  // namespace corvid
