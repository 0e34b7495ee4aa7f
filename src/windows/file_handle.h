// A file of the system that is open.
#pragma once

#include "windows/owned_handle.h"

#include <windows.h>

namespace corvid {

struct FileTraits {
  using Type = HANDLE;
  static Type none() { return INVALID_HANDLE_VALUE; }
  static void release(Type handle) { CloseHandle(handle); }
};
using FileHandle = Owned<FileTraits>;

}  // namespace corvid
