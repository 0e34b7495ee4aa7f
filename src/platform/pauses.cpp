#include "platform/pauses.h"

namespace corvid {
namespace {

constexpr int kMostLateInARow = 3;
constexpr double kLateSeconds = 0.003;
constexpr double kPromptSeconds = 0.25;
constexpr int kLongerMilliseconds = 5;

}  // namespace

Pauses::Wait::Wait(Pauses& pauses) : pauses_(pauses), start_(pauses.clock_.monotonicSeconds()) {
  if (pauses_.way_ == Way::FineTicks) hasFineTicks_ = pauses_.refineTicks();
}

Pauses::Wait::~Wait() {
  if (hasFineTicks_) pauses_.calls_.restoreTicks();
}

void Pauses::Wait::pause() {
  if (pauses_.clock_.monotonicSeconds() - start_ >= kPromptSeconds) {
    return pauses_.calls_.sleep(kLongerMilliseconds);
  }
  if (pauses_.way_ == Way::Timer) {
    if (pauses_.calls_.sleepByTimer()) return;
    pauses_.way_ = Way::FineTicks;
  }
  if (pauses_.way_ == Way::FineTicks && !hasFineTicks_) hasFineTicks_ = pauses_.refineTicks();
  pauses_.sleepMeasured();
}

void Pauses::sleepMeasured() {
  const double start = clock_.monotonicSeconds();
  calls_.sleep(1);
  if (way_ != Way::Sleep) return;
  const bool isLate = clock_.monotonicSeconds() - start > kLateSeconds;
  lateInARow_ = isLate ? lateInARow_ + 1 : 0;
  if (lateInARow_ == kMostLateInARow) way_ = Way::Timer;
}

bool Pauses::refineTicks() {
  if (calls_.refineTicks()) return true;
  way_ = Way::SleepForGood;
  return false;
}

}  // namespace corvid
