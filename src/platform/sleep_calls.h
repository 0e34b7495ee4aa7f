// The seam to the system's ways to sleep.
#pragma once

namespace corvid {

class SleepCalls {
 public:
  virtual ~SleepCalls() = default;
  // Gives up the processor for that long, rounded up to the system's next tick. On Windows a tick
  // lasts 15.6 ms unless a program has asked for finer ones.
  virtual void sleep(int milliseconds) = 0;
  // Sleeps one millisecond by a high-resolution timer. False, without having slept, where the
  // system has none (Windows before 10 1803) or the timer fails.
  [[nodiscard]] virtual bool sleepByTimer() = 0;
  // Asks for ticks of one millisecond, until they are given back; false where that is refused.
  [[nodiscard]] virtual bool refineTicks() = 0;
  virtual void restoreTicks() = 0;
};

}  // namespace corvid
