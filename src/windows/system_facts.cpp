#include "windows/system_facts.h"

#include <windows.h>

#include <array>

namespace corvid {

std::wstring windowsVersion() {
  using Tell = LONG(WINAPI*)(OSVERSIONINFOW*);
  // The documented call beside it names the version that the host's manifest asks for.
  const auto address = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
  const auto tell = reinterpret_cast<Tell>(reinterpret_cast<void*>(address));
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  if (tell == nullptr || tell(&version) != 0) return {};
  return std::to_wstring(version.dwMajorVersion) + L"." + std::to_wstring(version.dwMinorVersion) +
         L"." + std::to_wstring(version.dwBuildNumber);
}

std::wstring regionText() {
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
  GetUserDefaultLocaleName(name.data(), static_cast<int>(name.size()));
  return std::to_wstring(GetACP()) + L", " + name.data();
}

}  // namespace corvid
