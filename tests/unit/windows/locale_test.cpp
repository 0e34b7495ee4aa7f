// The user's region and the system's code page.
#include "windows/locale.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <functional>
#include <set>

namespace corvid {
namespace {

// Changes one value of the user's region and puts it back.
class ChangedRegion {
 public:
  ChangedRegion(LCTYPE type, const wchar_t* text) : type_(type) {
    GetLocaleInfoW(LOCALE_USER_DEFAULT, type, before_.data(), static_cast<int>(before_.size()));
    changed_ = SetLocaleInfoW(LOCALE_USER_DEFAULT, type, text) != FALSE;
  }
  ChangedRegion(const ChangedRegion&) = delete;
  ChangedRegion& operator=(const ChangedRegion&) = delete;
  ~ChangedRegion() { SetLocaleInfoW(LOCALE_USER_DEFAULT, type_, before_.data()); }

  [[nodiscard]] bool changed() const { return changed_; }

 private:
  LCTYPE type_;
  std::array<wchar_t, 128> before_{};
  bool changed_ = false;
};

struct RegionCase {
  LCTYPE type;
  const wchar_t* text;
  std::function<bool(const Locale&)> arrived;
};

TEST(UserRegion, EachValueIsAskedForAnewAndLandsInItsPlace) {
  const RegionCase cases[] = {
      {LOCALE_SDECIMAL, L";", [](const Locale& l) { return l.decimalSeparator == L";"; }},
      {LOCALE_STHOUSAND, L"'", [](const Locale& l) { return l.thousandsSeparator == L"'"; }},
      {LOCALE_SMONDECIMALSEP, L":",
       [](const Locale& l) { return l.currencyDecimalSeparator == L":"; }},
      {LOCALE_SMONTHOUSANDSEP, L"_",
       [](const Locale& l) { return l.currencyThousandsSeparator == L"_"; }},
      {LOCALE_SCURRENCY, L"Bs.", [](const Locale& l) { return l.currencySymbol == L"Bs."; }},
      {LOCALE_ICURRDIGITS, L"3", [](const Locale& l) { return l.currencyDecimals == 3; }},
      {LOCALE_ICURRENCY, L"2", [](const Locale& l) { return l.positiveCurrencyForm == 2; }},
      {LOCALE_INEGCURR, L"12", [](const Locale& l) { return l.negativeCurrencyForm == 12; }},
      {LOCALE_SSHORTDATE, L"dd/MM/yyyy",
       [](const Locale& l) { return l.shortDatePattern == L"dd/MM/yyyy"; }},
      {LOCALE_STIMEFORMAT, L"hh:mm:ss tt",
       [](const Locale& l) { return l.timePattern == L"hh:mm:ss tt"; }},
      {LOCALE_S1159, L"a. m.", [](const Locale& l) { return l.morning == L"a. m."; }},
      {LOCALE_S2359, L"p. m.", [](const Locale& l) { return l.afternoon == L"p. m."; }},
  };
  const WindowsLocale source;
  for (const RegionCase& item : cases) {
    EXPECT_FALSE(item.arrived(source.current()) && item.type == LOCALE_SDECIMAL);
    const ChangedRegion region(item.type, item.text);
    ASSERT_TRUE(region.changed()) << item.type;
    EXPECT_TRUE(item.arrived(source.current())) << item.type;
  }
}

TEST(SystemPage, EveryByteComesBack) {
  const WindowsCodePage page;
  std::set<wchar_t> characters;
  for (int code = 0; code < 256; ++code) {
    const auto byte = static_cast<std::uint8_t>(code);
    EXPECT_EQ(page.toByte(page.toCharacter(byte)), byte);
    characters.insert(page.toCharacter(byte));
  }
  EXPECT_EQ(characters.size(), 256U);
  for (wchar_t character = 0; character < 0x80; ++character) {
    EXPECT_EQ(page.toByte(character), character);
  }
}

TEST(SystemPage, WhatIsNotInItIsAQuestionMark) {
  const WindowsCodePage page;
  EXPECT_EQ(page.toByte(L'\u4E2D'), '?');
  EXPECT_EQ(page.toByte(L'\uFF21'), '?') << "no look-alike stands in";
}

TEST(SystemPage, IsWesternEuropeanWhereTheSystemsIs) {
  const UINT system = GetACP();
  if (system != 1252 && system != CP_UTF8) GTEST_SKIP() << "the system's page is " << system;
  const WindowsCodePage page;
  for (int code = 0; code < 256; ++code) {
    const auto byte = static_cast<std::uint8_t>(code);
    EXPECT_EQ(page.toCharacter(byte), windows1252().toCharacter(byte)) << code;
  }
}

}  // namespace
}  // namespace corvid
