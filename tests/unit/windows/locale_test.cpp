// The user's region and the system's code page.
#include "windows/locale.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <set>
#include <string>
#include <variant>

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

using Text = std::wstring Locale::*;
using Number = int Locale::*;

std::wstring valueOf(const Locale& locale, Text value) { return locale.*value; }
std::wstring valueOf(const Locale& locale, Number value) { return std::to_wstring(locale.*value); }

TEST(UserRegion, EachValueIsAskedForAnewAndLandsInItsPlace) {
  using L = Locale;
  const struct {
    LCTYPE type;
    const wchar_t* text;
    std::variant<Text, Number> value;
  } cases[] = {
      {LOCALE_SDECIMAL, L";", &L::decimalSeparator},
      {LOCALE_STHOUSAND, L"'", &L::thousandsSeparator},
      {LOCALE_SMONDECIMALSEP, L":", &L::currencyDecimalSeparator},
      {LOCALE_SMONTHOUSANDSEP, L"_", &L::currencyThousandsSeparator},
      {LOCALE_SCURRENCY, L"Bs.", &L::currencySymbol},
      {LOCALE_ICURRDIGITS, L"3", &L::currencyDecimals},
      {LOCALE_ICURRENCY, L"2", &L::positiveCurrencyForm},
      {LOCALE_INEGCURR, L"12", &L::negativeCurrencyForm},
      {LOCALE_SSHORTDATE, L"dd/MM/yyyy", &L::shortDatePattern},
      {LOCALE_STIMEFORMAT, L"hh:mm:ss tt", &L::timePattern},
      {LOCALE_S1159, L"a. m.", &L::morning},
      {LOCALE_S2359, L"p. m.", &L::afternoon},
  };
  const WindowsLocale source;
  for (const auto& item : cases) {
    const auto value = [&] {
      return std::visit([&](auto one) { return valueOf(source.current(), one); }, item.value);
    };
    EXPECT_NE(value(), item.text) << item.type;
    const ChangedRegion region(item.type, item.text);
    ASSERT_TRUE(region.changed()) << item.type;
    EXPECT_EQ(value(), item.text) << item.type;
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

}  // namespace
}  // namespace corvid
