#include "windows/settings_sources.h"

#include "windows/owned_handle.h"

#include <windows.h>

#include <array>

namespace corvid {
namespace {

constexpr DWORD kBufferSize = 1024;

struct RegistryKeyTraits {
  using Type = HKEY;
  static constexpr Type none() { return nullptr; }
  static void release(Type key) { RegCloseKey(key); }
};
using RegistryKey = Owned<RegistryKeyTraits>;

std::optional<std::wstring> readText(HKEY key, const std::wstring& name) {
  // Without the second flag a text with variables in it would count too, and come expanded.
  constexpr DWORD kKind = RRF_RT_REG_SZ | RRF_NOEXPAND;
  DWORD size = kBufferSize;
  std::wstring text;
  LSTATUS status = ERROR_MORE_DATA;
  // Again with the size that the call asks for; another process may write meanwhile.
  while (status == ERROR_MORE_DATA) {
    text.resize(size / sizeof(wchar_t) + 1);
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status = RegGetValueW(key, nullptr, name.c_str(), kKind, nullptr, text.data(), &size);
  }
  if (status != ERROR_SUCCESS) return std::nullopt;
  return std::wstring(text.data());
}

}  // namespace

std::wstring WindowsInitializationFile::read(const std::wstring& file, const std::wstring& section,
                                             const std::wstring& key) {
  std::array<wchar_t, kBufferSize> buffer;
  const DWORD length = GetPrivateProfileStringW(section.c_str(), key.c_str(), L"", buffer.data(),
                                                kBufferSize, file.c_str());
  return {buffer.data(), length};
}

std::optional<std::wstring> WindowsUserSettings::read(const std::wstring& application,
                                                      const std::wstring& section,
                                                      const std::wstring& key) {
  const std::wstring path =
      L"Software\\VB and VBA Program Settings\\" + application + L"\\" + section;
  RegistryKey opened;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, opened.put()) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return readText(opened.get(), key);
}

}  // namespace corvid
