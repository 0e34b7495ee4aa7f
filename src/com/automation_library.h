// The composition root: makes the Windows half of every seam and the states of the library.
#pragma once

namespace corvid {

class ThreadState;

// One state for the process and one for each thread that has objects; both are made when the first
// object needs them, never while the module is being loaded. Any thread.
class AutomationLibrary {
 public:
  AutomationLibrary() = delete;

  // The calling thread's; throws what construction throws.
  [[nodiscard]] static ThreadState& here();
  // Drops the calling thread's state and those of threads that have ended; with the last of them
  // that of the process. No object may be alive. False while another thread still has one, whose
  // windows nobody else can destroy.
  [[nodiscard]] static bool discard() noexcept;
};

}  // namespace corvid
