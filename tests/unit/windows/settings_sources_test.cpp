// Settings as the registry and initialisation files really hold them.
#include "windows/settings_sources.h"

#include "support/temp_folder.h"
#include "windows/append_files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

namespace corvid {
namespace {

const std::wstring kApplication = L"CorvidUnitTest";
const std::wstring kPlace = L"Software\\VB and VBA Program Settings\\" + kApplication;

// An application's keys in the store, for the length of a test.
class StoredKeys {
 public:
  StoredKeys() { RegDeleteTreeW(HKEY_CURRENT_USER, kPlace.c_str()); }
  StoredKeys(const StoredKeys&) = delete;
  StoredKeys& operator=(const StoredKeys&) = delete;
  ~StoredKeys() { RegDeleteTreeW(HKEY_CURRENT_USER, kPlace.c_str()); }

  static void put(const std::wstring& section, const std::wstring& key, DWORD type,
                  const std::wstring& data) {
    const std::wstring path = kPlace + L"\\" + section;
    const auto size = static_cast<DWORD>(data.size() * sizeof(wchar_t));
    ASSERT_EQ(
        RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), key.c_str(), type, data.data(), size),
        ERROR_SUCCESS);
  }
  static void putText(const std::wstring& section, const std::wstring& key,
                      const std::wstring& text) {
    put(section, key, REG_SZ, std::wstring(text.c_str(), text.size() + 1));
  }
};

std::optional<std::wstring> stored(const std::wstring& section, const std::wstring& key) {
  return WindowsUserSettings().read(kApplication, section, key);
}

TEST(UserStore, FindsTextsByNamesWithoutCase) {
  const StoredKeys keys;
  StoredKeys::putText(L"Config\\NimbusPF\\Tasas", L"0", L"16");
  StoredKeys::putText(L"General", L"Empty", L"");
  EXPECT_EQ(stored(L"Config\\NimbusPF\\Tasas", L"0"), L"16");
  EXPECT_EQ(stored(L"CONFIG\\nimbuspf\\TASAS", L"0"), L"16");
  EXPECT_EQ(stored(L"general", L"EMPTY"), L"") << "an empty text is one";
  EXPECT_EQ(stored(L"General", L"None"), std::nullopt);
  EXPECT_EQ(stored(L"None", L"Empty"), std::nullopt);
}

TEST(UserStore, TextsOfAnyLengthComeWhole) {
  const StoredKeys keys;
  for (const std::size_t length : {511U, 512U, 513U, 20000U}) {
    StoredKeys::putText(L"S", L"k", std::wstring(length, L'\u00D1'));
    EXPECT_EQ(stored(L"S", L"k"), std::wstring(length, L'\u00D1'));
  }
}

TEST(UserStore, TextStoredWithoutItsEndIsReadSafely) {
  const StoredKeys keys;
  StoredKeys::put(L"S", L"k", REG_SZ, std::wstring(512, L'x'));
  EXPECT_EQ(stored(L"S", L"k"), std::wstring(512, L'x'));
}

TEST(UserStore, OtherTypesAreNone) {
  const StoredKeys keys;
  StoredKeys::put(L"S", L"number", REG_DWORD, std::wstring(L"\1\0", 2));
  StoredKeys::put(L"S", L"variables", REG_EXPAND_SZ, std::wstring(L"%PATH%\0", 7));
  StoredKeys::put(L"S", L"bytes", REG_BINARY, L"ab");
  EXPECT_EQ(stored(L"S", L"number"), std::nullopt);
  EXPECT_EQ(stored(L"S", L"variables"), std::nullopt);
  EXPECT_EQ(stored(L"S", L"bytes"), std::nullopt);
}

struct IniFolder {
  void write(const std::string& bytes) const {
    std::ofstream(folder.path() / L"ORV.ini", std::ios::binary) << bytes;
  }
  [[nodiscard]] std::wstring read(const wchar_t* section, const wchar_t* key) const {
    return WindowsInitializationFile().read(folder.file(L"ORV.ini"), section, key);
  }
  TempFolder folder;
};

TEST(InitializationFiles, HoldTextsInTheSystemsCodePage) {
  const IniFolder folder;
  folder.write(
      "[Config\\NimbusPF]\r\nTimeOut=7,5\r\nEmpty=\r\nName = Pe\xF1"
      "a \r\nLong=" +
      std::string(2000, 'x') + "\r\n");
  EXPECT_EQ(folder.read(L"Config\\NimbusPF", L"TimeOut"), L"7,5");
  EXPECT_EQ(folder.read(L"CONFIG\\nimbuspf", L"TIMEOUT"), L"7,5");
  EXPECT_EQ(folder.read(L"Config\\NimbusPF", L"Empty"), L"");
  EXPECT_EQ(folder.read(L"Config\\NimbusPF", L"None"), L"");
  EXPECT_EQ(folder.read(L"Config\\NimbusPF", L"Name"), L"Pe\u00F1a");
  EXPECT_EQ(folder.read(L"Config\\NimbusPF", L"Long"), std::wstring(1023, L'x')) << "is cut";
  EXPECT_EQ(WindowsInitializationFile().read(folder.folder.file(L"None.ini"), L"S", L"k"), L"");
}

TEST(InitializationFiles, MayLieInAnyFolder) {
  const IniFolder folder;
  const std::wstring name = folder.folder.file(L"\u4E2D\u00F1");
  ASSERT_TRUE(std::filesystem::create_directory(name));
  std::ofstream(std::filesystem::path(name) / L"ORV.ini", std::ios::binary) << "[S]\r\nk=1\r\n";
  EXPECT_EQ(WindowsInitializationFile().read(name + L"\\ORV.ini", L"S", L"k"), L"1");
}

TEST(AppendFiles, StayOpenAreSharedAndGrowAtTheirEnd) {
  const TempFolder folder;
  const std::wstring path = folder.file(L"\u4E2D.log");
  WindowsAppendFiles files;
  std::wstring reason;
  const auto first = files.open(path, reason);
  const auto second = files.open(path, reason);
  ASSERT_TRUE(first && second);
  EXPECT_TRUE(first->append("a"));
  EXPECT_TRUE(second->append("b"));
  EXPECT_TRUE(first->append("c"));
  EXPECT_EQ(bytesOf(path), "abc") << "whole while it is open";
  EXPECT_NE(MoveFileW(path.c_str(), folder.file(L"moved").c_str()), FALSE);
  EXPECT_EQ(files.open(folder.path().wstring(), reason), nullptr) << "a folder is no file";
  EXPECT_NE(reason, L"");
}

}  // namespace
}  // namespace corvid
