#include "windows/locale.h"

#include <windows.h>

#include <array>

namespace corvid {
namespace {

constexpr int kTextSize = 128;

std::wstring localeText(LCTYPE kind) {
  std::array<wchar_t, kTextSize> buffer{};
  const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, kind, buffer.data(), kTextSize);
  return length > 1 ? std::wstring(buffer.data(), static_cast<std::size_t>(length - 1))
                    : std::wstring();
}

int localeNumber(LCTYPE kind) {
  DWORD value = 0;
  GetLocaleInfoW(LOCALE_USER_DEFAULT, kind | LOCALE_RETURN_NUMBER, reinterpret_cast<LPWSTR>(&value),
                 sizeof value / sizeof(wchar_t));
  return static_cast<int>(value);
}

bool pageIsSingleByte() {
  CPINFO info{};
  return GetCPInfo(CP_ACP, &info) != FALSE && info.MaxCharSize == 1;
}

}  // namespace

Locale WindowsLocale::current() const {
  Locale locale;
  locale.decimalSeparator = localeText(LOCALE_SDECIMAL);
  locale.thousandsSeparator = localeText(LOCALE_STHOUSAND);
  locale.currencyDecimalSeparator = localeText(LOCALE_SMONDECIMALSEP);
  locale.currencyThousandsSeparator = localeText(LOCALE_SMONTHOUSANDSEP);
  locale.currencySymbol = localeText(LOCALE_SCURRENCY);
  locale.currencyDecimals = localeNumber(LOCALE_ICURRDIGITS);
  locale.positiveCurrencyForm = localeNumber(LOCALE_ICURRENCY);
  locale.negativeCurrencyForm = localeNumber(LOCALE_INEGCURR);
  locale.shortDatePattern = localeText(LOCALE_SSHORTDATE);
  locale.timePattern = localeText(LOCALE_STIMEFORMAT);
  locale.morning = localeText(LOCALE_S1159);
  locale.afternoon = localeText(LOCALE_S2359);
  return locale;
}

WindowsCodePage::WindowsCodePage() : isSingleByte_(pageIsSingleByte()) {
  for (std::size_t i = 0; i < characters_.size(); ++i) {
    const auto byte = static_cast<std::uint8_t>(i);
    const char source = static_cast<char>(byte);
    characters_[i] = windows1252().toCharacter(byte);
    if (isSingleByte_) MultiByteToWideChar(CP_ACP, 0, &source, 1, &characters_[i], 1);
  }
}

wchar_t WindowsCodePage::toCharacter(std::uint8_t byte) const { return characters_.at(byte); }

std::uint8_t WindowsCodePage::toByte(wchar_t character) const {
  for (std::size_t i = 0; i < characters_.size(); ++i) {
    if (characters_[i] == character) return static_cast<std::uint8_t>(i);
  }
  return '?';
}

}  // namespace corvid
