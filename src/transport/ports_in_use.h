// The serial ports that are open in the process.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <set>

namespace corvid {

// Any thread. Outlives what it gives.
class PortsInUse {
 public:
  struct GiveBack {
    std::int16_t port = 0;
    void operator()(PortsInUse* ports) const noexcept { ports->giveBack(port); }
  };
  // A port's number, given back with this; empty for one that is taken already.
  using Taken = std::unique_ptr<PortsInUse, GiveBack>;

  [[nodiscard]] Taken take(std::int16_t port) {
    const std::lock_guard lock(gate_);
    return Taken(ports_.insert(port).second ? this : nullptr, GiveBack{port});
  }

 private:
  void giveBack(std::int16_t port) noexcept {
    const std::lock_guard lock(gate_);
    ports_.erase(port);
  }

  std::mutex gate_;
  std::set<std::int16_t> ports_;
};

}  // namespace corvid
