// The system's local time and its ways to sleep.
#pragma once

#include "platform/clock.h"
#include "platform/sleep_calls.h"
#include "windows/kernel_handle.h"

#include <windows.h>

namespace corvid {

class WindowsClock : public Clock {
 public:
  float secondsSinceMidnight() override;
  double monotonicSeconds() override;
  Date now() override;
};

// Loads what it needs of the multimedia library when ticks are first to be refined.
class WindowsSleepCalls : public SleepCalls {
 public:
  void sleep(int milliseconds) override { Sleep(static_cast<DWORD>(milliseconds)); }
  bool sleepByTimer() override;
  bool refineTicks() override;
  void restoreTicks() override;

 private:
  bool makeTimer();

  KernelHandle timer_;
  bool triedTimer_ = false;
};

}  // namespace corvid
