// Self-registration: the classes and the type library, in a tree of classes.
#pragma once

#include "com/classes_root.h"
#include "com/platform.h"

#include <optional>
#include <string>

namespace corvid {

// The tree that the command line of an installation names: the user's for "user" in any letter
// case, the machine's for an empty one or none. Nothing for any other.
[[nodiscard]] std::optional<ClassesRoot> rootNamedBy(const wchar_t* commandLine) noexcept;

// Writes the entries of every public class and of the type library with the path `file`, over those
// of any other copy of the library. May be repeated. E_ACCESSDENIED when the rights to write are
// missing; SELFREG_E_CLASS or SELFREG_E_TYPELIB when a write fails otherwise. What was written
// before it stays for the next attempt or for removal.
[[nodiscard]] HRESULT registerServer(const ClassesRoot& root, const std::wstring& file) noexcept;

// Removes the entries that name this very file, and nothing else: what another copy or the other
// bitness has registered stays whole, and a key that holds anything of somebody else stays. What is
// not there counts as removed, and what fails does not keep the others. Results as above.
[[nodiscard]] HRESULT unregisterServer(const ClassesRoot& root, const std::wstring& file) noexcept;

}  // namespace corvid
