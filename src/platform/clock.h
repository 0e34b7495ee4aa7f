// The seam to the clock: every time-out and every time stamp of the library comes from here.
#pragma once

#include "basic/date.h"

namespace corvid {

class Clock {
 public:
  virtual ~Clock() = default;
  // Seconds since local midnight, in single precision; starts again from 0 at midnight.
  [[nodiscard]] virtual float secondsSinceMidnight() = 0;
  // Seconds since some fixed moment, to a millisecond or better; never jumps.
  [[nodiscard]] virtual double monotonicSeconds() = 0;
  // The local date and time.
  [[nodiscard]] virtual Date now() = 0;
};

}  // namespace corvid
