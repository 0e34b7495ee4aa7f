// How long one wait for the printer may last.
#pragma once

#include "platform/clock.h"

#include <algorithm>
#include <limits>

namespace corvid {

// Measured by two clocks. The clock since midnight is the published measure: a wait across midnight
// goes on until a reply completes. A clock that is set forward must not end a wait early, since a
// command that was executed would be sent again; so the steady clock has to agree.
class TimeOut {
 public:
  // Begins now. After `most` seconds of the steady clock it is over in any case.
  TimeOut(Clock& clock, double seconds, double most = std::numeric_limits<double>::infinity())
      : clock_(clock),
        seconds_(seconds),
        most_(most),
        start_(clock.secondsSinceMidnight()),
        steadyStart_(clock.monotonicSeconds()) {}

  [[nodiscard]] bool isOver() const {
    return isOverBySteadyClock() &&
           (elapsedSeconds() >= most_ || clock_.secondsSinceMidnight() - start_ >= seconds_);
  }
  [[nodiscard]] bool isOverBySteadyClock() const {
    return elapsedSeconds() >= std::min(seconds_, most_);
  }
  // By the steady clock.
  [[nodiscard]] double elapsedSeconds() const { return clock_.monotonicSeconds() - steadyStart_; }
  // By the clock since midnight.
  [[nodiscard]] float start() const { return start_; }
  [[nodiscard]] double seconds() const { return seconds_; }

 private:
  Clock& clock_;
  double seconds_;
  double most_;
  float start_;
  double steadyStart_;
};

}  // namespace corvid
