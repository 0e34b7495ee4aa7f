// Threads of the host, told apart by their numbers.
#pragma once

#include "com/platform.h"
#include "windows/kernel_handle.h"

namespace corvid {

// Keeps the thread's number from being given to another one while it lives.
class HostThread {
 public:
  explicit HostThread(DWORD id) noexcept : id_(id), handle_(OpenThread(SYNCHRONIZE, FALSE, id)) {}

  [[nodiscard]] bool isCalling() const noexcept { return id_ == GetCurrentThreadId(); }
  [[nodiscard]] bool hasEnded() const noexcept {
    return !handle_ || WaitForSingleObject(handle_.get(), 0) == WAIT_OBJECT_0;
  }

 private:
  DWORD id_;
  KernelHandle handle_;
};

}  // namespace corvid
