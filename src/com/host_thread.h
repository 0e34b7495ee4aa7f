// Threads of the host, told apart by their numbers.
#pragma once

#include "com/platform.h"
#include "windows/owned_handle.h"

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
  struct HandleTraits {
    using Type = HANDLE;
    static constexpr Type none() { return nullptr; }
    static void release(Type handle) { CloseHandle(handle); }
  };

  DWORD id_;
  Owned<HandleTraits> handle_;
};

}  // namespace corvid
