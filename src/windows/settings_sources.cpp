#include "windows/settings_sources.h"

#include "windows/registry_key.h"

#include <windows.h>

#include <array>

namespace corvid {
namespace {

constexpr DWORD kBufferSize = 1024;

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
  return readText(opened.get(), key.c_str(), TextKind::Plain);
}

}  // namespace corvid
