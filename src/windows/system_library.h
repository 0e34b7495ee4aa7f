// The system's own libraries, loaded when they are needed.
#pragma once

#include <windows.h>

namespace corvid {

// Loads <system folder>\<file>, for good; null where it is not there. By its full path no other
// folder's library of that name comes first, and the host's search settings stay as they are.
[[nodiscard]] HMODULE loadSystemLibrary(const wchar_t* file);

}  // namespace corvid
