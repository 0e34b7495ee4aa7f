// The composition root: makes the Windows half of every seam and the one library of the process.
#pragma once

#include <memory>

namespace corvid {

class ProcessState;

// Process-wide, made when the first object needs it; never while the module is being loaded.
class AutomationLibrary {
 public:
  // Throws what construction throws.
  static AutomationLibrary& instance();
  // Drops the one that is there, with all process-wide state. No object may be alive. False, and
  // nothing is dropped, on another thread than the one that made it, whose windows it holds.
  [[nodiscard]] static bool discard() noexcept;

  AutomationLibrary();
  AutomationLibrary(const AutomationLibrary&) = delete;
  AutomationLibrary& operator=(const AutomationLibrary&) = delete;
  AutomationLibrary(AutomationLibrary&&) = delete;
  AutomationLibrary& operator=(AutomationLibrary&&) = delete;
  ~AutomationLibrary();

  [[nodiscard]] ProcessState& process();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace corvid
