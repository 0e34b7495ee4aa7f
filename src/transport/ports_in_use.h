// The serial ports that are open in the process.
#pragma once

#include <cstdint>
#include <mutex>
#include <set>

namespace corvid {

// Any thread.
class PortsInUse {
 public:
  // False for a port that is taken already.
  [[nodiscard]] bool take(std::int16_t port) {
    const std::lock_guard lock(gate_);
    return ports_.insert(port).second;
  }
  void giveBack(std::int16_t port) noexcept {
    const std::lock_guard lock(gate_);
    ports_.erase(port);
  }

 private:
  std::mutex gate_;
  std::set<std::int16_t> ports_;
};

}  // namespace corvid
