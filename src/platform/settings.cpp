#include "platform/settings.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "platform/file_names.h"

#include <optional>

namespace corvid {
namespace {

std::optional<Currency> leadingCurrency(const std::wstring& text) {
  const std::optional<double> number = leadingNumber(text);
  if (!number) return std::nullopt;
  try {
    return Currency::fromDouble(*number);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace

FoundSetting Settings::find(const std::wstring& application, const std::wstring& section,
                            const std::wstring& key, const std::wstring& fallback) const {
  const std::wstring inFile = file_->read(filePath(application), section, key);
  if (!inFile.empty()) return {inFile, SettingOrigin::File};
  return findInStore(application, section, key, fallback);
}

FoundSetting Settings::findInStore(const std::wstring& application, const std::wstring& section,
                                   const std::wstring& key, const std::wstring& fallback) const {
  const std::optional<std::wstring> stored = store_->read(application, section, key);
  if (stored) return {*stored, SettingOrigin::UserStore};
  return {fallback, SettingOrigin::Default};
}

std::wstring Settings::fileName(const std::wstring& application, const std::wstring& section,
                                const std::wstring& key, const std::wstring& fallback) const {
  FoundSetting found = find(application, section, key, fallback);
  if (found.origin == SettingOrigin::File && namesNetworkOrDevice(found.text)) {
    found = findInStore(application, section, key, fallback);
  }
  return found.text.empty() ? std::wstring() : resolvedIn(folder_, found.text);
}

std::wstring Settings::filePath(const std::wstring& application) const {
  return resolvedIn(folder_, application + L".ini");
}

bool Settings::boolean(const std::wstring& application, const std::wstring& section,
                       const std::wstring& key, bool fallback) const {
  try {
    return toBoolean(text(application, section, key, toText(fallback)));
  } catch (const RunTimeError&) {
    return fallback;
  }
}

Currency Settings::number(const std::wstring& application, const std::wstring& section,
                          const std::wstring& key, Currency fallback) const {
  const std::wstring value = text(application, section, key, toText(fallback, Locale{}));
  if (const auto number = leadingCurrency(replaceAll(value, L",", L"."))) return *number;
  return leadingCurrency(value).value_or(fallback);
}

}  // namespace corvid
