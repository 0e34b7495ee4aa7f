// The system's clock, against itself.
#include "windows/clock.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cmath>

namespace corvid {
namespace {

TEST(SystemClock, SecondsAndDateTellTheSameTime) {
  WindowsClock clock;
  const float seconds = clock.secondsSinceMidnight();
  EXPECT_GE(seconds, 0.0F);
  EXPECT_LT(seconds, 86400.0F);
  const double days = clock.now().days;
  const double ofDate = (days - std::floor(days)) * 86400;
  // Midnight may lie between the two questions.
  const double apart = std::fmod(std::abs(ofDate - static_cast<double>(seconds)) + 2, 86400);
  EXPECT_LT(apart, 10);
}

TEST(SystemClock, DateIsTheLocalOne) {
  SYSTEMTIME before{};
  SYSTEMTIME after{};
  DateParts parts;
  do {
    GetLocalTime(&before);
    parts = toParts(WindowsClock().now());
    GetLocalTime(&after);
  } while (before.wDay != after.wDay);
  EXPECT_EQ(parts.year, before.wYear);
  EXPECT_EQ(parts.month, before.wMonth);
  EXPECT_EQ(parts.day, before.wDay);
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
