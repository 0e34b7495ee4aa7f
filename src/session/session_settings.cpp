#include "session/session_settings.h"

#include "basic/conversions.h"
#include "basic/run_time_error.h"

namespace corvid {
namespace {

template <typename Integer>
Integer wholeSetting(const Settings& settings, const wchar_t* key, Integer fallback,
                     Integer (*convert)(const Decimal&)) {
  const Currency missing = Currency::fromDecimal(Decimal::fromInteger(fallback));
  const Decimal value = settings.number(kApplication, kSessionSection, key, missing).toDecimal();
  try {
    return convert(value);
  } catch (const RunTimeError&) {
    return fallback;
  }
}

}  // namespace

std::int16_t int16Setting(const Settings& settings, const wchar_t* key, std::int16_t fallback) {
  return wholeSetting<std::int16_t>(settings, key, fallback, toInt16);
}

std::int32_t int32Setting(const Settings& settings, const wchar_t* key, std::int32_t fallback) {
  return wholeSetting<std::int32_t>(settings, key, fallback, toInt32);
}

}  // namespace corvid
