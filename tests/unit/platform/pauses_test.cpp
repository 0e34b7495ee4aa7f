// How pauses keep near their millisecond on systems with coarse ticks.
#include "platform/pauses.h"

#include "support/fake_clock.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

constexpr double kCoarse = 0.0156;

struct PausesBench {
  FakeClock clock;
  Pauses pauses{clock, clock};

  // The seconds that a wait of so many pauses lasts.
  double wait(int count) {
    const double start = clock.total();
    Pauses::Wait wait(pauses);
    for (int i = 0; i < count; ++i) wait.pause();
    return clock.total() - start;
  }
};

TEST(Pauses, PlainSleepsStayWhereTheyKeepTheirWord) {
  PausesBench bench;
  bench.clock.hasTimer = true;
  EXPECT_NEAR(bench.wait(100), 0.1, 1e-6);
  EXPECT_EQ(bench.clock.timerSleeps, 0);
  bench.clock.tickSeconds = kCoarse;
  bench.wait(2);
  bench.clock.tickSeconds = 0;
  bench.wait(1);
  bench.clock.tickSeconds = kCoarse;
  bench.wait(2);
  EXPECT_EQ(bench.clock.timerSleeps, 0) << "late ones that are not three in a row";
}

TEST(Pauses, ThreeLateOnesGoOverToTheTimer) {
  PausesBench bench;
  bench.clock.tickSeconds = kCoarse;
  bench.clock.hasTimer = true;
  bench.wait(3);
  EXPECT_EQ(bench.clock.timerSleeps, 0);
  EXPECT_NEAR(bench.wait(100), 0.1, 1e-6);
  EXPECT_EQ(bench.clock.timerSleeps, 100) << "in later waits too";
}

TEST(Pauses, WithoutATimerTicksAreRefinedForTheLengthOfAWait) {
  PausesBench bench;
  bench.clock.tickSeconds = kCoarse;
  bench.clock.canRefineTicks = true;
  bench.wait(4);
  EXPECT_FALSE(bench.clock.isRefined()) << "given back";
  {
    Pauses::Wait wait(bench.pauses);
    EXPECT_TRUE(bench.clock.isRefined());
  }
  EXPECT_FALSE(bench.clock.isRefined());
  EXPECT_LT(bench.wait(50), 0.11);
}

TEST(Pauses, TimerThatFailsLaterIsDoneWithout) {
  PausesBench bench;
  bench.clock.tickSeconds = kCoarse;
  bench.clock.hasTimer = bench.clock.canRefineTicks = true;
  bench.wait(10);
  bench.clock.hasTimer = false;
  EXPECT_LT(bench.wait(50), 0.11);
  EXPECT_EQ(bench.clock.timerSleeps, 7);
}

TEST(Pauses, PlainSleepsStayWhereAllElseFails) {
  PausesBench bench;
  bench.clock.tickSeconds = kCoarse;
  EXPECT_NEAR(bench.wait(10), 10 * kCoarse, 0.001);
  bench.clock.hasTimer = bench.clock.canRefineTicks = true;
  EXPECT_NEAR(bench.wait(10), 10 * kCoarse, 0.001) << "and nothing is tried again";
}

TEST(Pauses, LongWaitsSleepPlainly) {
  PausesBench bench;
  bench.clock.hasTimer = true;
  bench.clock.tickSeconds = kCoarse;
  bench.wait(3);
  bench.clock.tickSeconds = 0;
  Pauses::Wait wait(bench.pauses);
  for (int i = 0; i < 250; ++i) wait.pause();
  EXPECT_EQ(bench.clock.timerSleeps, 250);
  const double start = bench.clock.total();
  for (int i = 0; i < 10; ++i) wait.pause();
  EXPECT_EQ(bench.clock.timerSleeps, 250);
  EXPECT_NEAR(bench.clock.total() - start, 0.05, 1e-6) << "five milliseconds each";
}

}  // namespace
}  // namespace corvid
