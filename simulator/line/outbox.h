// Answers on their way out, each piece held back until its time.
#pragma once

#include "simulator/line/misbehaviour.h"

#include <chrono>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace corvid::simulator {

using Moment = std::chrono::steady_clock::time_point;

class Outbox {
 public:
  // Gaps count from the piece before, or from `now` where nothing is on its way.
  void add(const std::vector<Chunk>& chunks, Moment now);

  // Everything that is due, in order, and no longer held.
  [[nodiscard]] std::string takeDue(Moment now);

  void clear() { held_.clear(); }
  // Makes everything due now.
  void hurry(Moment now);

  // When the next piece is due; nothing when none waits.
  [[nodiscard]] std::optional<Moment> nextDue() const;

 private:
  struct Held {
    Moment due;
    std::string bytes;
  };
  std::deque<Held> held_;
};

}  // namespace corvid::simulator
