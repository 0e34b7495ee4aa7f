// Windows that take no input while another one is modal.
#pragma once

#include <windows.h>

#include <vector>

namespace corvid {

// The calling thread's visible top-level windows but `owner`, which may be null.
[[nodiscard]] std::vector<HWND> threadWindowsBut(HWND owner);

// Disables, of the windows that it is given, those that are enabled, and enables those again.
class DisabledWindows {
 public:
  explicit DisabledWindows(const std::vector<HWND>& windows);
  DisabledWindows(const DisabledWindows&) = delete;
  DisabledWindows& operator=(const DisabledWindows&) = delete;
  ~DisabledWindows() { enable(); }

  // May be called again.
  void enable();

 private:
  std::vector<HWND> disabled_;
};

}  // namespace corvid
