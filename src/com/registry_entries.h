// The registry entries of the public classes, as one table.
#pragma once

#include "com/class_table.h"
#include "com/platform.h"

#include <optional>
#include <string>
#include <vector>

namespace corvid {

// One value of a key below the classes root; a key without any value has a row of its own.
struct RegistryEntry {
  std::wstring key;
  std::optional<std::wstring> text;
  const wchar_t* valueName = nullptr;  // null: the key's default value
};

// In the order of writing: parents before their children.
[[nodiscard]] std::vector<RegistryEntry> registryEntries(const PublicClass& one,
                                                         const std::wstring& modulePath);

// Writes to and removes from HKEY_CLASSES_ROOT; false on failure. Removing takes away the value,
// and its key when nothing else is left in it.
[[nodiscard]] bool writeEntry(const RegistryEntry& entry);
[[nodiscard]] bool removeEntry(const RegistryEntry& entry);

}  // namespace corvid
