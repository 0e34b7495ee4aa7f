// Registration, in a classes root of the test's own.
#include "basic/text.h"
#include "com/module.h"
#include "unit/com/automation_host.h"

#include <set>

namespace corvid::testing {
namespace {

constexpr const wchar_t* kRoot = L"Software\\CorvidRegistrationTest";

void collect(HKEY root, const std::wstring& path, std::set<std::wstring>& keys) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  wchar_t name[256];
  for (DWORD i = 0;; ++i) {
    DWORD size = 256;
    const LSTATUS found = RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr);
    if (found != ERROR_SUCCESS) break;
    std::wstring child = path;
    child += path.empty() ? L"" : L"\\";
    child += name;
    keys.insert(child);
    collect(root, child, keys);
  }
  RegCloseKey(key);
}

class SelfRegistration : public AutomationTest {
 protected:
  SelfRegistration() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kRoot);
    RegCreateKeyExW(HKEY_CURRENT_USER, kRoot, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &root_,
                    nullptr);
    overrideWith(root_);
  }
  ~SelfRegistration() override {
    overrideWith(nullptr);
    RegCloseKey(root_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kRoot);
  }

  static void overrideWith(HKEY key) { RegOverridePredefKey(HKEY_CLASSES_ROOT, key); }

  [[nodiscard]] std::set<std::wstring> keys() const {
    std::set<std::wstring> found;
    collect(root_, L"", found);
    // The containers of all classes, libraries and interfaces are nobody's own.
    std::erase_if(found, [](const std::wstring& key) {
      return equalIgnoringCase(key, L"CLSID") || equalIgnoringCase(key, L"TypeLib") ||
             equalIgnoringCase(key, L"Interface");
    });
    return found;
  }
  [[nodiscard]] std::wstring value(const std::wstring& key, const wchar_t* name = nullptr) const {
    wchar_t text[1024] = L"";
    DWORD size = sizeof text;
    const LSTATUS read =
        RegGetValueW(root_, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size);
    return read == ERROR_SUCCESS ? text : L"<none>";
  }
  void createKey(const std::wstring& path) const {
    HKEY key = nullptr;
    RegCreateKeyW(root_, path.c_str(), &key);
    RegCloseKey(key);
  }

  HKEY root_ = nullptr;
};

TEST_F(SelfRegistration, WritesWhatAHostNeedsToFindTheClass) {
  ASSERT_EQ(S_OK, DllRegisterServer());
  const std::wstring classId = value(L"PrinterFiscalCorvid.PrinterFiscal\\CLSID");
  CLSID id{};
  ASSERT_EQ(S_OK, CLSIDFromString(classId.c_str(), &id));
  EXPECT_EQ(__uuidof(::PrinterFiscal), id);
  const std::wstring key = L"CLSID\\" + classId;
  EXPECT_EQ(modulePath(), value(key + L"\\InprocServer32"));
  EXPECT_EQ(L"Apartment", value(key + L"\\InprocServer32", L"ThreadingModel"));
  EXPECT_EQ(L"PrinterFiscalCorvid.PrinterFiscal", value(key + L"\\ProgID"));
  const std::wstring library = value(key + L"\\TypeLib");
  const std::wstring system = sizeof(void*) == 8 ? L"win64" : L"win32";
  // Some systems write the path in its long form, with a prefix.
  const std::wstring path = value(L"TypeLib\\" + library + L"\\1.0\\0\\" + system);
  EXPECT_TRUE(path.ends_with(modulePath()));
}

TEST_F(SelfRegistration, CanBeRepeatedAndLeavesNothingBehind) {
  ASSERT_EQ(S_OK, DllRegisterServer());
  const auto once = keys();
  EXPECT_FALSE(once.empty());
  EXPECT_EQ(S_OK, DllRegisterServer());
  EXPECT_EQ(once, keys());

  EXPECT_EQ(S_OK, DllUnregisterServer());
  EXPECT_EQ(std::set<std::wstring>(), keys());
  EXPECT_EQ(S_OK, DllUnregisterServer());
}

TEST_F(SelfRegistration, LeavesWhatOthersAddedToItsKeys) {
  ASSERT_EQ(S_OK, DllRegisterServer());
  const std::wstring foreign = L"PrinterFiscalCorvid.CStringBuffer\\Foreign";
  createKey(foreign);
  EXPECT_EQ(S_OK, DllUnregisterServer());
  EXPECT_TRUE(keys().contains(foreign));
  EXPECT_EQ(L"<none>", value(L"PrinterFiscalCorvid.CStringBuffer"));
  EXPECT_FALSE(keys().contains(L"PrinterFiscalCorvid.PrinterFiscal"));
}

// Nothing can be written to or read from a root that is gone.
TEST_F(SelfRegistration, ReportsFailures) {
  ASSERT_EQ(ERROR_SUCCESS, RegDeleteKeyW(HKEY_CURRENT_USER, kRoot));
  EXPECT_EQ(SELFREG_E_CLASS, DllRegisterServer());
  EXPECT_EQ(SELFREG_E_CLASS, DllUnregisterServer());
}

}  // namespace
}  // namespace corvid::testing
