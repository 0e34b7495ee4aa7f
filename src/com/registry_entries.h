// What registration writes, as tables.
#pragma once

#include "com/class_table.h"
#include "com/classes_root.h"
#include "com/platform.h"

#include <optional>
#include <string>
#include <vector>

namespace corvid {

// The entries of one class or of the type library, each in the order of writing: parents before
// their children.
struct RegistryGroup {
  // Of this bitness alone. One of them names the library's file.
  std::vector<RegistryEntry> own;
  // Of both bitnesses.
  std::vector<RegistryEntry> shared;
  // The keys whose default values name a file: first that of this bitness, then those of others. A
  // group belongs to the file that its first key names; the shared entries have to stay while any
  // of them names one.
  std::vector<RegistryPlace> files;
};

// The class, with its ProgID, served by a file.
[[nodiscard]] RegistryGroup entriesOf(const PublicClass& one, const std::wstring& file);

// The type library in a file, with the interfaces that the system marshals by it; what the system's
// own registration of type libraries writes. Empty when the library cannot be read.
[[nodiscard]] std::optional<RegistryGroup> entriesOf(ITypeLib& library, const std::wstring& file);

}  // namespace corvid
