// Reports in files of the system.
#include "windows/report_files.h"

#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace corvid {
namespace {

TEST(ReportFiles, HoldEachTextExactly) {
  constexpr unsigned kWesternEuropean = 1252;
  EXPECT_EQ(encodedForFile(L"Pe\u00F1a\r\n12 \u20AC", kWesternEuropean),
            "Pe\xF1"
            "a\r\n12 \x80");
  EXPECT_EQ(encodedForFile(L"\u0141", kWesternEuropean), "\xEF\xBB\xBF\xC5\x81") << "missing";
  EXPECT_EQ(encodedForFile(L"\u0393", kWesternEuropean), "\xEF\xBB\xBF\xCE\x93") << "best fit";
  EXPECT_EQ(encodedForFile(L"\u00F1", CP_UTF8), "\xC3\xB1") << "a code page like others";
}

TEST(ReportFiles, NewTextTakesThePlaceOfTheOldOne) {
  const TempFolder folder;
  const std::wstring path = folder.file(L"report.txt");
  WindowsReportFiles files;
  std::ofstream(std::filesystem::path(path)) << "something longer that stood there before";
  EXPECT_EQ(saveWhole(files, path, L"short"), L"");
  EXPECT_EQ(bytesOf(path), "short");
  EXPECT_EQ(saveWhole(files, path, std::wstring(3'000'000, L'x')), L"");
  EXPECT_EQ(bytesOf(path).size(), 3'000'000U);
  EXPECT_TRUE(saveWhole(files, folder.file(L"none\\report.txt"), L"x").starts_with(L"CreateFile"));
  std::filesystem::create_directory(folder.file(L"folder"));
  EXPECT_TRUE(saveWhole(files, folder.file(L"folder"), L"x").starts_with(L"MoveFileEx"));
  const FileHandle reader(
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_NE(saveWhole(files, path, L"x"), L"") << "held by another program";
  EXPECT_EQ(bytesOf(path).size(), 3'000'000U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2)
      << "nothing is left beside";
}

}  // namespace
}  // namespace corvid
