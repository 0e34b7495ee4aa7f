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

std::optional<std::wstring> stored(const wchar_t* section, const wchar_t* key) {
  return WindowsUserSettings().read(kApplication, section, key);
}

TEST(UserStore, GivesTextsOfAnyLengthAndNothingElse) {
  const auto ended = [](std::size_t length) { return std::wstring(length, L'\u00D1') + L'\0'; };
  const struct {
    DWORD type;
    std::wstring data;
    std::optional<std::wstring> text;
    const char* reason;
  } cases[] = {
      {REG_SZ, ended(0), L"", "an empty text is one"},
      {REG_SZ, ended(511), std::wstring(511, L'\u00D1'), "one below the first place"},
      {REG_SZ, ended(512), std::wstring(512, L'\u00D1'), "the end does not fit"},
      {REG_SZ, ended(513), std::wstring(513, L'\u00D1'), "one above"},
      {REG_SZ, ended(20000), std::wstring(20000, L'\u00D1'), "a long one"},
      {REG_SZ, std::wstring(512, L'x'), std::wstring(512, L'x'), "stored without its end"},
      {REG_DWORD, std::wstring(L"\1\0", 2), std::nullopt, "a number"},
      {REG_EXPAND_SZ, std::wstring(L"%PATH%\0", 7), std::nullopt, "with variables"},
      {REG_BINARY, L"ab", std::nullopt, "bytes"},
  };
  const std::wstring place = kPlace + L"\\Config\\NimbusPF\\Tasas";
  for (const auto& one : cases) {
    const auto size = static_cast<DWORD>(one.data.size() * sizeof(wchar_t));
    ASSERT_EQ(
        RegSetKeyValueW(HKEY_CURRENT_USER, place.c_str(), L"Key", one.type, one.data.data(), size),
        ERROR_SUCCESS);
    EXPECT_EQ(stored(L"config\\NimbusPF\\TASAS", L"KEY"), one.text) << one.reason;
  }
  EXPECT_EQ(stored(L"Config\\NimbusPF\\Tasas", L"None"), std::nullopt);
  EXPECT_EQ(stored(L"None", L"Key"), std::nullopt);
  RegDeleteTreeW(HKEY_CURRENT_USER, kPlace.c_str());
}

TEST(InitializationFiles, HoldTextsInTheSystemsCodePageInAnyFolder) {
  const TempFolder folder;
  const std::filesystem::path place = folder.path() / L"\u4E2D\u00F1";
  ASSERT_TRUE(std::filesystem::create_directory(place));
  std::ofstream(place / L"ORV.ini", std::ios::binary)
      << "[Config\\NimbusPF]\r\nTimeOut=7,5\r\nEmpty=\r\nName = Pe\xF1"
         "a \r\nLong=" +
             std::string(2000, 'x') + "\r\n";
  const auto read = [&](const wchar_t* section, const wchar_t* key) {
    return WindowsInitializationFile().read((place / L"ORV.ini").wstring(), section, key);
  };
  EXPECT_EQ(read(L"CONFIG\\nimbuspf", L"TIMEOUT"), L"7,5");
  EXPECT_EQ(read(L"Config\\NimbusPF", L"Empty"), L"");
  EXPECT_EQ(read(L"Config\\NimbusPF", L"None"), L"");
  EXPECT_EQ(read(L"Config\\NimbusPF", L"Name"), L"Pe\u00F1a");
  EXPECT_EQ(read(L"Config\\NimbusPF", L"Long"), std::wstring(1023, L'x')) << "is cut";
  EXPECT_EQ(WindowsInitializationFile().read(folder.file(L"None.ini"), L"S", L"k"), L"");
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
