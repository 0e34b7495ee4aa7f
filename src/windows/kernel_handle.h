// A kernel object of the system that is open: a file, a timer, a thread.
#pragma once

#include "windows/owned_handle.h"

#include <windows.h>

namespace corvid {

struct KernelTraits {
  using Type = HANDLE;
  static constexpr Type none() { return nullptr; }
  static void release(Type handle) { CloseHandle(handle); }
};
using KernelHandle = Owned<KernelTraits>;

// CreateFile tells a failure otherwise than its siblings.
struct FileTraits : KernelTraits {
  static Type none() { return INVALID_HANDLE_VALUE; }
};
using FileHandle = Owned<FileTraits>;

}  // namespace corvid
