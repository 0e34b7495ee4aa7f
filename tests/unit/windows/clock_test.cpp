// The system's clock, against itself.
#include "windows/clock.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <tuple>

namespace corvid {
namespace {

double secondsOf(const SYSTEMTIME& time) {
  return 3600.0 * time.wHour + 60.0 * time.wMinute + time.wSecond + time.wMilliseconds / 1000.0;
}

TEST(SystemClock, TellsTheLocalDateAndTimeOfDay) {
  constexpr double kRounding = 0.01;  // of a single-precision number, in seconds
  SYSTEMTIME before{};
  SYSTEMTIME after{};
  DateParts parts;
  float seconds = 0;
  do {
    GetLocalTime(&before);
    parts = toParts(WindowsClock().now());
    seconds = WindowsClock().secondsSinceMidnight();
    GetLocalTime(&after);
  } while (before.wDay != after.wDay);
  EXPECT_EQ(std::tie(parts.year, parts.month, parts.day),
            std::make_tuple(before.wYear, before.wMonth, before.wDay));
  const int ofDate = 3600 * parts.hour + 60 * parts.minute + parts.second;
  EXPECT_GE(ofDate, static_cast<int>(secondsOf(before)));
  EXPECT_LE(ofDate, secondsOf(after));
  EXPECT_GE(seconds, secondsOf(before) - kRounding);
  EXPECT_LE(seconds, secondsOf(after) + kRounding);
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
