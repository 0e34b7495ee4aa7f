// A key of the registry, and the texts in it.
#pragma once

#include "windows/owned_handle.h"

#include <windows.h>

#include <optional>
#include <string>

namespace corvid {

struct RegistryKeyTraits {
  using Type = HKEY;
  static constexpr Type none() { return nullptr; }
  static void release(Type key) { RegCloseKey(key); }
};
using RegistryKey = Owned<RegistryKeyTraits>;

enum class TextKind {
  Plain,         // a text with variables of the environment in it does not count
  WithVariables  // such a text counts too, and comes expanded
};

// The text of a key's value, a null name being that of the default value. Empty when there is none,
// when it is no text, and when it cannot be read.
[[nodiscard]] std::optional<std::wstring> readText(HKEY key, const wchar_t* name, TextKind kind);

}  // namespace corvid
