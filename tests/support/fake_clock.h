// A clock that the test moves by hand.
#pragma once

#include "platform/clock.h"

#include <cmath>

namespace corvid {

class FakeClock : public Clock {
 public:
  float secondsSinceMidnight() override { return static_cast<float>(seconds_); }
  double monotonicSeconds() override { return total_; }
  Date now() override { return now_; }
  // Each rest passes a little time, so that a wait with nothing to read comes to its end.
  void rest() override { advance(restSeconds); }
  void restLonger() override {
    ++longRests;
    advance(restSeconds);
  }

  void setSeconds(double seconds) { seconds_ = seconds; }
  void setNow(Date now) { now_ = now; }
  void advance(double seconds) {
    total_ += seconds;
    seconds_ = std::fmod(seconds_ + seconds, 86400.0);
  }
  // Seconds that have passed since the clock was made, midnights included.
  [[nodiscard]] double total() const { return total_; }

  double restSeconds = 0.05;
  int longRests = 0;

 private:
  double seconds_ = 36000;
  double total_ = 0;
  Date now_{46095.4376736111};  // 2026-03-14 10:30:15
};

}  // namespace corvid
