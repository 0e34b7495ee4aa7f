// Self-registration: the classes and the type library, in the registry's classes root.
#pragma once

#include "com/platform.h"

namespace corvid {

// Writes the keys of every public class with the module's full path, then registers the type
// library. May be repeated. SELFREG_E_CLASS or SELFREG_E_TYPELIB when a write fails; what was
// written before it stays for the next attempt or for removal.
[[nodiscard]] HRESULT registerServer() noexcept;

// Removes what registerServer writes and nothing else: a key that holds anything of somebody else
// stays. What is not there counts as removed.
[[nodiscard]] HRESULT unregisterServer() noexcept;

}  // namespace corvid
