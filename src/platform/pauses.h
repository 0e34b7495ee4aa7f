// The pauses between two looks at a line.
#pragma once

#include "platform/clock.h"
#include "platform/sleep_calls.h"

namespace corvid {

// Keeps one session's pauses near the millisecond that they are asked for. A plain sleep costs the
// least and mostly lasts what it should; where three in a row last more than 3 ms, pauses go over
// to the high-resolution timer, where there is none to finer ticks for the length of a wait, and
// back to the plain sleep where both fail.
class Pauses {
 public:
  Pauses(Clock& clock, SleepCalls& calls) : clock_(clock), calls_(calls) {}

  // One wait for the printer; finer ticks are given back at its end.
  class Wait {
   public:
    explicit Wait(Pauses& pauses);
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;
    ~Wait();

    // About one millisecond. After the first 250 ms five, by the plain sleep: most answers
    // begin before, and a wait beyond it must cost little.
    void pause();

   private:
    Pauses& pauses_;
    double start_;
    bool hasFineTicks_ = false;
  };

 private:
  enum class Way { Sleep, Timer, FineTicks, SleepForGood };

  void sleepMeasured();
  [[nodiscard]] bool refineTicks();

  Clock& clock_;
  SleepCalls& calls_;
  Way way_ = Way::Sleep;
  int lateInARow_ = 0;
};

}  // namespace corvid
