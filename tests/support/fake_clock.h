// A clock that the test moves, by hand or by what the library sleeps.
#pragma once

#include "platform/clock.h"
#include "platform/sleep_calls.h"

#include <cmath>

namespace corvid {

class FakeClock : public Clock, public SleepCalls {
 public:
  float secondsSinceMidnight() override { return static_cast<float>(seconds_); }
  double monotonicSeconds() override { return total_; }
  Date now() override { return now_; }

  // A sleep ends with the first tick after its time.
  void sleep(int milliseconds) override {
    ++sleeps;
    const double end = total_ + milliseconds / 1000.0;
    const double tick = isRefined_ ? 0.001 : tickSeconds;
    advance(tick > 0 ? std::ceil(end / tick - 1e-9) * tick - total_ : end - total_);
  }
  bool sleepByTimer() override {
    if (!hasTimer) return false;
    ++timerSleeps;
    advance(0.001);
    return true;
  }
  bool refineTicks() override { return isRefined_ = canRefineTicks; }
  void restoreTicks() override { isRefined_ = false; }
  [[nodiscard]] bool isRefined() const { return isRefined_; }

  void setSeconds(double seconds) { seconds_ = seconds; }
  void setNow(Date now) { now_ = now; }
  void advance(double seconds) {
    total_ += seconds;
    seconds_ = std::fmod(seconds_ + seconds, 86400.0);
  }
  // Seconds that have passed since the clock was made, midnights included.
  [[nodiscard]] double total() const { return total_; }

  double tickSeconds = 0;  // 0: a sleep lasts what it should
  bool hasTimer = false;
  bool canRefineTicks = false;
  int sleeps = 0;
  int timerSleeps = 0;

 private:
  bool isRefined_ = false;
  double seconds_ = 36000;
  double total_ = 0;
  Date now_{46095.4376736111};  // 2026-03-14 10:30:15
};

}  // namespace corvid
