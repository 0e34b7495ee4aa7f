#include "com/classes_root.h"

#include "windows/registry_key.h"

namespace corvid {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes";
constexpr REGSAM kOtherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

REGSAM flagOf(RegistryView view) { return view == RegistryView::Other ? kOtherView : 0; }

LSTATUS writeText(HKEY key, const wchar_t* name, const std::wstring& text) {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
  return RegSetValueExW(key, name, 0, REG_SZ, bytes, size);
}

// What is not there counts as removed.
LSTATUS removed(LSTATUS status) { return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status; }

}  // namespace

ClassesRoot ClassesRoot::machine() noexcept { return {HKEY_LOCAL_MACHINE, kClasses}; }
ClassesRoot ClassesRoot::user() noexcept { return {HKEY_CURRENT_USER, kClasses}; }

// The system finds the place of a view by the path from a predefined key; what a view shows of a
// key that is already open is not certain.
std::wstring ClassesRoot::pathOf(const std::wstring& key) const {
  return std::wstring(path_) + L"\\" + key;
}

std::wstring ClassesRoot::read(const RegistryPlace& place) const {
  RegistryKey key;
  if (RegOpenKeyExW(hive_, pathOf(place.key).c_str(), 0, KEY_QUERY_VALUE | flagOf(place.view),
                    key.put()) != ERROR_SUCCESS) {
    return {};
  }
  return readText(key.get(), nullptr, TextKind::WithVariables).value_or(std::wstring());
}

LSTATUS ClassesRoot::write(const RegistryEntry& entry) const {
  RegistryKey key;
  const LSTATUS created =
      RegCreateKeyExW(hive_, pathOf(entry.key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_SET_VALUE | flagOf(entry.view), nullptr, key.put(), nullptr);
  if (created != ERROR_SUCCESS || !entry.text) return created;
  return writeText(key.get(), entry.valueName, *entry.text);
}

LSTATUS ClassesRoot::removeValue(const RegistryEntry& entry) const {
  RegistryKey key;
  const LSTATUS opened = RegOpenKeyExW(hive_, pathOf(entry.key).c_str(), 0,
                                       KEY_SET_VALUE | flagOf(entry.view), key.put());
  if (opened != ERROR_SUCCESS || !entry.text) return removed(opened);
  return removed(RegDeleteValueW(key.get(), entry.valueName));
}

// False too when the key is not there.
bool ClassesRoot::isEmpty(const RegistryEntry& entry) const {
  RegistryKey key;
  if (RegOpenKeyExW(hive_, pathOf(entry.key).c_str(), 0, KEY_READ | flagOf(entry.view),
                    key.put()) != ERROR_SUCCESS) {
    return false;
  }
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS result = RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr,
                                          nullptr, &values, nullptr, nullptr, nullptr, nullptr);
  return result == ERROR_SUCCESS && keys == 0 && values == 0;
}

LSTATUS ClassesRoot::remove(const RegistryEntry& entry) const {
  const LSTATUS result = removeValue(entry);
  if (result != ERROR_SUCCESS || !isEmpty(entry)) return result;
  return removed(RegDeleteKeyExW(hive_, pathOf(entry.key).c_str(), flagOf(entry.view), 0));
}

}  // namespace corvid
