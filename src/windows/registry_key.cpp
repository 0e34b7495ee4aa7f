#include "windows/registry_key.h"

namespace corvid {
namespace {

constexpr DWORD kFirstSize = 1024;

}  // namespace

std::optional<std::wstring> readText(HKEY key, const wchar_t* name, TextKind kind) {
  // Without the second flag the system expands variables by itself.
  const DWORD flags = RRF_RT_REG_SZ | (kind == TextKind::Plain ? RRF_NOEXPAND : 0);
  DWORD size = kFirstSize;
  std::wstring text;
  LSTATUS status = ERROR_MORE_DATA;
  // Again with the size that the call asks for; another process may write meanwhile.
  while (status == ERROR_MORE_DATA) {
    text.resize(size / sizeof(wchar_t) + 1);
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status = RegGetValueW(key, nullptr, name, flags, nullptr, text.data(), &size);
  }
  if (status != ERROR_SUCCESS) return std::nullopt;
  text.resize(text.find(L'\0'));
  return text;
}

}  // namespace corvid
