#include "com/registry_entries.h"

#include "corvid_interfaces.h"

#include <array>

namespace corvid {
namespace {

constexpr std::size_t kGuidLength = 39;  // with braces and the closing NUL
constexpr const wchar_t* kLibraryVersion = L"1.0";

class RegistryKey {
 public:
  RegistryKey() = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  RegistryKey(RegistryKey&&) = delete;
  RegistryKey& operator=(RegistryKey&&) = delete;
  ~RegistryKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  [[nodiscard]] HKEY get() const noexcept { return key_; }
  [[nodiscard]] HKEY* put() noexcept { return &key_; }

 private:
  HKEY key_ = nullptr;
};

std::wstring guidText(const GUID& id) {
  std::array<wchar_t, kGuidLength> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

bool writeText(HKEY key, const wchar_t* name, const std::wstring& text) {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
  return RegSetValueExW(key, name, 0, REG_SZ, bytes, size) == ERROR_SUCCESS;
}

bool isGone(LSTATUS result) { return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND; }

bool removeValue(const RegistryEntry& entry) {
  RegistryKey key;
  const LSTATUS opened =
      RegOpenKeyExW(HKEY_CLASSES_ROOT, entry.key.c_str(), 0, KEY_SET_VALUE, key.put());
  if (opened != ERROR_SUCCESS) return isGone(opened);
  return !entry.text || isGone(RegDeleteValueW(key.get(), entry.valueName));
}

// False too when the key is not there.
bool isEmpty(const std::wstring& name) {
  RegistryKey key;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) {
    return false;
  }
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS result = RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr,
                                          nullptr, &values, nullptr, nullptr, nullptr, nullptr);
  return result == ERROR_SUCCESS && keys == 0 && values == 0;
}

}  // namespace

std::vector<RegistryEntry> registryEntries(const PublicClass& one, const std::wstring& modulePath) {
  const std::wstring progId = std::wstring(L"PrinterFiscalCorvid.") + one.name;
  const std::wstring id = guidText(one.id);
  const std::wstring classKey = L"CLSID\\" + id;
  return {
      {progId, one.description},
      {progId + L"\\CLSID", id},
      {classKey, one.description},
      {classKey + L"\\InprocServer32", modulePath},
      {classKey + L"\\InprocServer32", L"Apartment", L"ThreadingModel"},
      {classKey + L"\\ProgID", progId},
      {classKey + L"\\Programmable", std::nullopt},
      {classKey + L"\\TypeLib", guidText(LIBID_PrinterFiscalCorvid)},
      {classKey + L"\\Version", kLibraryVersion},
  };
}

bool writeEntry(const RegistryEntry& entry) {
  RegistryKey key;
  const LSTATUS created =
      RegCreateKeyExW(HKEY_CLASSES_ROOT, entry.key.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_SET_VALUE, nullptr, key.put(), nullptr);
  if (created != ERROR_SUCCESS) return false;
  return !entry.text || writeText(key.get(), entry.valueName, *entry.text);
}

bool removeEntry(const RegistryEntry& entry) {
  if (!removeValue(entry)) return false;
  if (!isEmpty(entry.key)) return true;
  return isGone(RegDeleteKeyW(HKEY_CLASSES_ROOT, entry.key.c_str()));
}

}  // namespace corvid
