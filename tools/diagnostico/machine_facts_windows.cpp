#include "tools/diagnostico/machine_facts_windows.h"

#include "basic/text.h"
#include "corvid_version.h"
#include "transport/modcomm.h"
#include "windows/registry_key.h"
#include "windows/system_facts.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <vector>

namespace corvid {
namespace {

constexpr int kOwnBits = 8 * sizeof(void*);

// Where the registry names the library for hosts; the session's class, whose identifier never
// changes.
constexpr const wchar_t* kServerKey =
    L"Software\\Classes\\CLSID\\{06EA5ACD-B65C-4A8C-83DC-785D5EE5D7A2}\\InprocServer32";

bool runsHostsOf64Bits() {
  BOOL isOnWindows64 = FALSE;
  return kOwnBits == 64 ||
         (IsWow64Process(GetCurrentProcess(), &isOnWindows64) != FALSE && isOnWindows64 != FALSE);
}

using FolderTeller = UINT(WINAPI*)(LPWSTR, UINT);

std::wstring folderBy(FolderTeller tell) {
  std::array<wchar_t, MAX_PATH> folder{};
  const UINT length = tell(folder.data(), static_cast<UINT>(folder.size()));
  return length < folder.size() ? std::wstring(folder.data(), length) : std::wstring();
}

// Programs of the two bitnesses call different folders "System32".
std::wstring asSeenFromHere(const std::wstring& file, int bits) {
  const std::wstring system = folderBy(GetSystemDirectoryW);
  if (bits == kOwnBits || system.empty() || file.size() <= system.size() ||
      !equalIgnoringCase(file.substr(0, system.size()), system)) {
    return file;
  }
  const std::wstring other = bits == 32 ? folderBy(GetSystemWow64DirectoryW)
                                        : folderBy(GetSystemWindowsDirectoryW) + L"\\Sysnative";
  return other + file.substr(system.size());
}

// Empty where the file has no version resource.
std::wstring versionOf(const std::wstring& file) {
  DWORD unused = 0;
  const DWORD size = GetFileVersionInfoSizeW(file.c_str(), &unused);
  std::vector<std::byte> data(size);
  void* found = nullptr;
  UINT length = 0;
  if (size == 0 || GetFileVersionInfoW(file.c_str(), 0, size, data.data()) == FALSE ||
      VerQueryValueW(data.data(), L"\\", &found, &length) == FALSE ||
      length < sizeof(VS_FIXEDFILEINFO)) {
    return {};
  }
  const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
  const std::array<WORD, 4> numbers = {HIWORD(fixed.dwFileVersionMS), LOWORD(fixed.dwFileVersionMS),
                                       HIWORD(fixed.dwFileVersionLS),
                                       LOWORD(fixed.dwFileVersionLS)};
  std::wstring text;
  for (const WORD number : numbers) text += (text.empty() ? L"" : L".") + std::to_wstring(number);
  return text;
}

bool exists(const std::wstring& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void addLibrary(std::vector<RegisteredLibrary>& libraries, HKEY root, int bits) {
  const REGSAM view = bits == 64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
  RegistryKey key;
  if (RegOpenKeyExW(root, kServerKey, 0, KEY_QUERY_VALUE | view, key.put()) != ERROR_SUCCESS) {
    return;
  }
  const std::wstring file =
      readText(key.get(), nullptr, TextKind::WithVariables).value_or(std::wstring());
  if (file.empty()) return;
  const std::wstring seen = asSeenFromHere(file, bits);
  libraries.push_back({.bits = bits,
                       .isOfUser = root == HKEY_CURRENT_USER,
                       .file = file,
                       .exists = exists(seen),
                       .version = versionOf(seen)});
}

// Device names by port name, as the drivers have written them.
std::map<std::wstring, std::wstring> deviceMap() {
  std::map<std::wstring, std::wstring> devices;
  RegistryKey key;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM", 0, KEY_QUERY_VALUE,
                    key.put()) != ERROR_SUCCESS) {
    return devices;
  }
  constexpr std::size_t kLongestName = 1024;
  std::array<wchar_t, kLongestName> name{};
  for (DWORD i = 0;; ++i) {
    auto length = static_cast<DWORD>(name.size());
    if (RegEnumValueW(key.get(), i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return devices;
    }
    const std::wstring device(name.data(), length);
    if (const auto port = readText(key.get(), device.c_str(), TextKind::Plain)) {
      devices[upperCase(*port)] = device;
    }
  }
}

std::map<std::int16_t, std::wstring> devicesByNumber() {
  const auto devices = deviceMap();
  std::map<std::int16_t, std::wstring> numbered;
  for (std::int16_t port = 1; port <= kHighestPort; ++port) {
    const auto found = devices.find(L"COM" + std::to_wstring(port));
    if (found != devices.end()) numbered[port] = found->second;
  }
  return numbered;
}

}  // namespace

MachineFacts windowsFacts() {
  MachineFacts facts;
  facts.program = L"" CORVID_VERSION_TEXT L" (" CORVID_BITS_TEXT L" bits)";
  facts.system = windowsVersion();
  facts.region = regionText();
  if (runsHostsOf64Bits()) facts.bitnesses.push_back(64);
  facts.bitnesses.push_back(32);
  for (const int bits : facts.bitnesses) {
    addLibrary(facts.libraries, HKEY_LOCAL_MACHINE, bits);
    addLibrary(facts.libraries, HKEY_CURRENT_USER, bits);
  }
  facts.devices = devicesByNumber();
  return facts;
}

}  // namespace corvid
