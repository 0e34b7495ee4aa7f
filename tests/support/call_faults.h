// Calls to the system that a test lets fail: one by its name and turn, or the nth of all.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvid {

// Shared by the doubles of all seams. Counts every call that can fail.
class CallFaults {
 public:
  // The nth use of a call from now on fails with that system error; failFrom: all from it on. An
  // empty name means any call.
  void failNth(const std::string& call, int nth, std::uint32_t error) {
    faults_.push_back({call, nth, false, error});
  }
  void failFrom(const std::string& call, int nth, std::uint32_t error) {
    faults_.push_back({call, nth, true, error});
  }
  void repair() { faults_.clear(); }

  // Notes one use; the error it fails with, nothing where it succeeds.
  [[nodiscard]] std::optional<std::uint32_t> use(const std::string& call) {
    ++count_;
    std::optional<std::uint32_t> error;
    for (Fault& fault : faults_) {
      if (!fault.call.empty() && fault.call != call) continue;
      --fault.countdown;
      if (fault.countdown == 0 || (fault.countdown < 0 && fault.lasts)) error = fault.error;
    }
    return error;
  }
  [[nodiscard]] int count() const { return count_; }

 private:
  struct Fault {
    std::string call;
    int countdown;  // uses left before it strikes
    bool lasts;
    std::uint32_t error;
  };
  std::vector<Fault> faults_;
  int count_ = 0;
};

}  // namespace corvid
