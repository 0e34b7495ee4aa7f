// Registration, in a tree of classes of the test's own.
#include "com/self_registration.h"

#include "com/module.h"
#include "com/registry_entries.h"
#include "unit/com/automation_host.h"
#include "windows/registry_key.h"

#include <aclapi.h>
#include <gmock/gmock.h>
#include <shlwapi.h>

#include <algorithm>
#include <array>
#include <map>

namespace corvid::testing {
namespace {

using ::testing::IsEmpty;

constexpr const wchar_t* kPlace = L"Software\\CorvidRegistrationTest";
constexpr const wchar_t* kNoFile = L"C:\\Newer\\CorvidAPI.dll";

// Each key below another, by its path, and each text in it.
using Snapshot = std::map<std::wstring, std::map<std::wstring, std::wstring>>;

bool isContainer(const std::wstring& key) {
  // Nobody's own, and left behind.
  const auto kContainers = {L"CLSID", L"Interface", L"TypeLib", L"Software", L"Software\\Classes"};
  const std::wstring name = key.substr(key.find(L"Classes\\") == 9 ? 17 : 0);
  return std::ranges::any_of(kContainers,
                             [&](auto one) { return lstrcmpiW(one, name.c_str()) == 0; });
}

void collect(HKEY root, const std::wstring& path, Snapshot& found) {
  RegistryKey key;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) return;
  if (!path.empty() && !isContainer(path)) found[path];
  std::array<wchar_t, 256> name{};
  for (DWORD i = 0, size = 256;; ++i, size = 256) {
    if (RegEnumValueW(key.get(), i, name.data(), &size, nullptr, nullptr, nullptr, nullptr) != 0) {
      break;
    }
    found[path][name.data()] = readText(key.get(), name.data(), TextKind::Plain).value_or(L"?");
  }
  for (DWORD i = 0, size = 256;; ++i, size = 256) {
    if (RegEnumKeyExW(key.get(), i, name.data(), &size, nullptr, nullptr, nullptr, nullptr) != 0) {
      break;
    }
    collect(root, path.empty() ? name.data() : path + L"\\" + name.data(), found);
  }
}

Snapshot snapshotOf(const RegistryKey& key) {
  Snapshot found;
  collect(key.get(), L"", found);
  return found;
}

RegistryKey newKey(const std::wstring& path) {
  RegistryKey key;
  RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                  key.put(), nullptr);
  return key;
}

// Calls to a predefined key reach another one, for the length of a test.
class Override {
 public:
  Override(HKEY predefined, const RegistryKey& key) : predefined_(predefined) {
    RegOverridePredefKey(predefined_, key.get());
  }
  Override(const Override&) = delete;
  Override& operator=(const Override&) = delete;
  ~Override() { RegOverridePredefKey(predefined_, nullptr); }

 private:
  HKEY predefined_;
};

class SelfRegistration : public AutomationTest {
 protected:
  SelfRegistration() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kPlace);
    key_ = newKey(kPlace);
  }
  ~SelfRegistration() override { RegDeleteTreeW(HKEY_CURRENT_USER, kPlace); }

  [[nodiscard]] HRESULT add(const std::wstring& file = modulePath()) const {
    return registerServer(root_, file);
  }
  [[nodiscard]] HRESULT takeBack(const std::wstring& file = modulePath()) const {
    return unregisterServer(root_, file);
  }
  [[nodiscard]] Snapshot snapshot() const { return snapshotOf(key_); }

  ClassesRoot root_{HKEY_CURRENT_USER, kPlace};
  RegistryKey key_;
};

// The system's own registration of a type library is the model, but for what it tells about the
// file on the disk; it is also what older copies of the library left.
TEST_F(SelfRegistration, WritesTheTypeLibraryAsTheSystemDoesAndTakesItOver) {
  {
    const Override classes(HKEY_CLASSES_ROOT, key_);
    ComPtr<ITypeLib> library;
    ASSERT_EQ(S_OK, LoadTypeLibEx(modulePath().c_str(), REGKIND_REGISTER, library.put()));
  }
  Snapshot system = snapshot();
  ASSERT_GT(system.size(), 40U);
  ASSERT_EQ(S_OK, add());
  Snapshot both = snapshot();
  EXPECT_EQ(S_OK, takeBack());
  EXPECT_THAT(snapshot(), IsEmpty());

  ASSERT_EQ(S_OK, add());
  Snapshot own = snapshot();
  EXPECT_EQ(both, own);
  std::erase_if(own, [](const auto& one) {
    return one.first.starts_with(L"CLSID") || one.first.starts_with(L"PrinterFiscalCorvid.");
  });
  for (auto& [key, values] : own) {
    if (key.ends_with(L"\\FLAGS") || key.ends_with(L"\\HELPDIR")) values = system[key];
    // Some systems write the path in its long form, with a prefix.
    if (key.find(L"\\win") != std::wstring::npos) values[L""].insert(0, L"\\\\?\\");
  }
  EXPECT_EQ(system, own);
}

// Each entry point goes to its tree, and to no other, whatever the other holds already.
TEST_F(SelfRegistration, GoesToTheMachineOrToTheUserAsItIsTold) {
  const RegistryKey machineKey = newKey(std::wstring(kPlace) + L"\\machine");
  const RegistryKey userKey = newKey(std::wstring(kPlace) + L"\\user");
  const Override machine(HKEY_LOCAL_MACHINE, machineKey);
  const Override user(HKEY_CURRENT_USER, userKey);

  for (const wchar_t* unknown : {L"users", L"use", L"machine", L" "}) {
    EXPECT_EQ(E_INVALIDARG, DllInstall(TRUE, unknown));
    EXPECT_EQ(E_INVALIDARG, DllInstall(FALSE, unknown));
  }
  EXPECT_THAT(snapshotOf(machineKey), IsEmpty());

  ASSERT_EQ(S_OK, DllInstall(TRUE, L"User"));
  EXPECT_THAT(snapshotOf(machineKey), IsEmpty());
  const Snapshot registered = snapshotOf(userKey);
  EXPECT_TRUE(registered.contains(L"Software\\Classes\\PrinterFiscalCorvid.PrinterFiscal"));

  for (const auto& [install, takeBack] :
       {std::pair{+[] { return DllRegisterServer(); }, +[] { return DllUnregisterServer(); }},
        std::pair{+[] { return DllInstall(TRUE, nullptr); },
                  +[] { return DllInstall(FALSE, L""); }}}) {
    ASSERT_EQ(S_OK, install());
    ASSERT_EQ(S_OK, install());
    EXPECT_EQ(registered, snapshotOf(machineKey));
    EXPECT_EQ(S_OK, takeBack());
    EXPECT_EQ(S_OK, takeBack());
    EXPECT_THAT(snapshotOf(machineKey), IsEmpty());
    EXPECT_EQ(registered, snapshotOf(userKey));
  }
  EXPECT_EQ(S_OK, DllInstall(FALSE, L"USER"));
  EXPECT_THAT(snapshotOf(userKey), IsEmpty());
}

TEST_F(SelfRegistration, LeavesWhatOthersAddedToItsKeys) {
  ASSERT_EQ(S_OK, add());
  const std::wstring foreign = L"PrinterFiscalCorvid.CStringBuffer\\Foreign";
  newKey(std::wstring(kPlace) + L"\\" + foreign);
  EXPECT_EQ(S_OK, takeBack());
  const Snapshot expected = {{L"PrinterFiscalCorvid.CStringBuffer", {}}, {foreign, {}}};
  EXPECT_EQ(expected, snapshot());
}

// The newest copy wins, and an older one that goes takes nothing of it away: whether the newer
// one's file is there or not, and when one of the older copy's classes was not registered anew.
TEST_F(SelfRegistration, LeavesTheEntriesOfAnotherCopyWhole) {
  wchar_t another[MAX_PATH] = L"";
  GetModuleFileNameW(GetModuleHandleW(L"oleaut32.dll"), another, MAX_PATH);
  for (const std::wstring& newer : {std::wstring(another), std::wstring(kNoFile)}) {
    ASSERT_EQ(S_OK, add());
    ASSERT_EQ(S_OK, add(newer));
    Snapshot whole = snapshot();
    EXPECT_EQ(S_OK, takeBack());
    EXPECT_EQ(whole, snapshot());

    const RegistryGroup group = entriesOf(*findPublicClass(__uuidof(::ResumenZ)), modulePath());
    for (const RegistryEntry& entry : group.own) ASSERT_EQ(ERROR_SUCCESS, root_.write(entry));
    EXPECT_EQ(S_OK, takeBack());
    for (const RegistryEntry& entry : group.own) whole.erase(entry.key);
    for (const RegistryEntry& entry : group.shared) whole.erase(entry.key);
    EXPECT_EQ(whole, snapshot());

    EXPECT_EQ(S_OK, takeBack(newer));
    EXPECT_THAT(snapshot(), IsEmpty());
  }
}

TEST_F(SelfRegistration, KnowsItsFileByEverySpelling) {
  const std::wstring path = modulePath();
  std::wstring shouted = path;
  CharUpperW(shouted.data());
  std::wstring brief(MAX_PATH, L'\0');
  brief.resize(GetShortPathNameW(path.c_str(), brief.data(), MAX_PATH));
  const std::size_t folder = path.rfind(L'\\');
  const std::wstring roundabout = path.substr(0, folder) + L"\\." + path.substr(folder);
  for (const std::wstring& spelling : {shouted, brief, L"\\\\?\\" + path, roundabout}) {
    ASSERT_EQ(S_OK, add(spelling));
    EXPECT_EQ(S_OK, takeBack());
    EXPECT_THAT(snapshot(), IsEmpty()) << ::testing::PrintToString(spelling);
  }
}

// One key that only somebody with more rights may write to.
class DeniedKey {
 public:
  explicit DeniedKey(std::wstring path) : path_(std::move(path)) {
    EXPECT_EQ(ERROR_SUCCESS, set(DENY_ACCESS, KEY_SET_VALUE));
  }
  DeniedKey(const DeniedKey&) = delete;
  DeniedKey& operator=(const DeniedKey&) = delete;
  ~DeniedKey() { set(GRANT_ACCESS, KEY_ALL_ACCESS); }

 private:
  LSTATUS set(ACCESS_MODE mode, DWORD rights) {
    wchar_t everyone[] = L"EVERYONE";
    EXPLICIT_ACCESSW access[2] = {};
    BuildExplicitAccessWithNameW(&access[0], everyone, KEY_READ | WRITE_DAC, GRANT_ACCESS, 0);
    BuildExplicitAccessWithNameW(&access[1], everyone, rights, mode, 0);
    PACL list = nullptr;
    DWORD status = SetEntriesInAclW(2, access, nullptr, &list);
    std::wstring name = L"CURRENT_USER\\" + path_;
    if (status == ERROR_SUCCESS) {
      status = SetNamedSecurityInfoW(name.data(), SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION,
                                     nullptr, nullptr, list, nullptr);
    }
    LocalFree(list);
    return static_cast<LSTATUS>(status);
  }

  std::wstring path_;
};

// Missing rights have a result of their own, whatever else fails, and what can be removed is.
TEST_F(SelfRegistration, TellsThatRightsAreMissing) {
  ASSERT_EQ(S_OK, add());
  const std::wstring refused = L"PrinterFiscalCorvid.PrinterResponse3";
  {
    const DeniedKey denied(std::wstring(kPlace) + L"\\" + refused);
    EXPECT_EQ(E_ACCESSDENIED, add());
    EXPECT_EQ(E_ACCESSDENIED, takeBack());
  }
  const Snapshot left = snapshot();
  EXPECT_EQ(1U, left.size());
  EXPECT_TRUE(left.contains(refused));
  EXPECT_EQ(S_OK, takeBack());
  EXPECT_THAT(snapshot(), IsEmpty());
}

TEST_F(SelfRegistration, ReportsOtherFailures) {
  const ClassesRoot none(nullptr, kPlace);
  EXPECT_EQ(SELFREG_E_CLASS, registerServer(none, modulePath()));
  EXPECT_EQ(SELFREG_E_CLASS, unregisterServer(none, modulePath()));
  EXPECT_EQ(SELFREG_E_CLASS, add(L""));
  EXPECT_THAT(snapshot(), IsEmpty());
}

}  // namespace
}  // namespace corvid::testing
