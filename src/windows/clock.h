// The system's local time.
#pragma once

#include "platform/clock.h"

namespace corvid {

class WindowsClock : public Clock {
 public:
  float secondsSinceMidnight() override;
  double monotonicSeconds() override;
  Date now() override;
  void rest() override;
  void restLonger() override;
};

}  // namespace corvid
