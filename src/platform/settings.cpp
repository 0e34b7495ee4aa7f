#include "platform/settings.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

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

std::wstring Settings::text(const std::wstring& application, const std::wstring& section,
                            const std::wstring& key, const std::wstring& fallback) const {
  std::wstring value = file_.read(L".\\" + application + L".ini", section, key);
  if (!value.empty()) return value;
  return store_.read(application, section, key).value_or(fallback);
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
