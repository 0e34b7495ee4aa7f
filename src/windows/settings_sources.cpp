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
  DWORD size = 0;
  constexpr DWORD kKind = RRF_RT_REG_SZ;
  if (RegGetValueW(key, nullptr, name.c_str(), kKind, nullptr, nullptr, &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::wstring text(size / sizeof(wchar_t), L'\0');
  if (RegGetValueW(key, nullptr, name.c_str(), kKind, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  text.resize(text.find(L'\0') == std::wstring::npos ? text.size() : text.find(L'\0'));
  return text;
}

}  // namespace

std::wstring WindowsInitializationFile::read(const std::wstring& file, const std::wstring& section,
                                             const std::wstring& key) {
  std::array<char, kBufferSize> buffer;
  const DWORD length =
      GetPrivateProfileStringA(codePage_.encode(section).c_str(), codePage_.encode(key).c_str(), "",
                               buffer.data(), kBufferSize, codePage_.encode(file).c_str());
  return codePage_.decode({buffer.data(), length});
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
