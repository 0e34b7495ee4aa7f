// A tree of classes in the registry: the machine's, the current user's, or a test's.
//
// Of the machine's and the user's tree 64-bit Windows 7 and later keep CLSID and Interface twice,
// once for each bitness: that is what the two views are for. Everything else in them, the ProgIDs
// and TypeLib too, both bitnesses share. 32-bit Windows has one of everything, as has a test's tree
// below the user's keys: there both views show the same.
#pragma once

#include "com/platform.h"

#include <optional>
#include <string>

namespace corvid {

enum class RegistryView {
  Own,   // what programs of this bitness see
  Other  // what programs of the other bitness see
};

// A key, by its path below the root.
struct RegistryPlace {
  std::wstring key;
  RegistryView view = RegistryView::Own;
};

// One value of a key; a key without any value has an entry of its own.
struct RegistryEntry {
  std::wstring key;
  std::optional<std::wstring> text;
  const wchar_t* valueName = nullptr;  // null: the key's default value
  RegistryView view = RegistryView::Own;
};

class ClassesRoot {
 public:
  // The tree below `hive`, one of the predefined keys or an open one that outlives this, and
  // `path`, a text that does so.
  ClassesRoot(HKEY hive, const wchar_t* path) noexcept : hive_(hive), path_(path) {}
  // Both are named in full: through HKEY_CLASSES_ROOT the machine's entries would be written to the
  // user's tree wherever a key of that name was left there.
  [[nodiscard]] static ClassesRoot machine() noexcept;
  [[nodiscard]] static ClassesRoot user() noexcept;

  // The text of a key's default value; empty when there is none.
  [[nodiscard]] std::wstring read(const RegistryPlace& place) const;
  // Both give the system's error number. Writing makes the keys on the way; removing takes away the
  // value, and its key when nothing else is left in it. What is not there counts as removed.
  [[nodiscard]] LSTATUS write(const RegistryEntry& entry) const;
  [[nodiscard]] LSTATUS remove(const RegistryEntry& entry) const;

 private:
  [[nodiscard]] std::wstring pathOf(const std::wstring& key) const;
  [[nodiscard]] LSTATUS removeValue(const RegistryEntry& entry) const;
  [[nodiscard]] bool isEmpty(const RegistryEntry& entry) const;

  HKEY hive_;
  const wchar_t* path_;
};

}  // namespace corvid
