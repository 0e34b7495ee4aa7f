#include "simulator/line/outbox.h"

#include <algorithm>

namespace corvid::simulator {

void Outbox::add(const std::vector<Chunk>& chunks, Moment now) {
  for (const Chunk& chunk : chunks) {
    const Moment start = held_.empty() ? now : std::max(now, held_.back().due);
    held_.push_back({start + chunk.gap, chunk.bytes});
  }
}

std::string Outbox::takeDue(Moment now) {
  std::string bytes;
  while (!held_.empty() && held_.front().due <= now) {
    bytes += held_.front().bytes;
    held_.pop_front();
  }
  return bytes;
}

void Outbox::hurry(Moment now) {
  for (Held& held : held_) {
    held.due = std::min(held.due, now);
  }
}

std::optional<Moment> Outbox::nextDue() const {
  return held_.empty() ? std::nullopt : std::optional(held_.front().due);
}

}  // namespace corvid::simulator
