// Whole-number settings of the session's section.
#pragma once

#include "platform/settings.h"

#include <cstdint>

namespace corvid {

// The setting rounded half to even; the fallback where it is missing, no number, or does not fit.
[[nodiscard]] std::int16_t int16Setting(const Settings& settings, const wchar_t* key,
                                        std::int16_t fallback);
[[nodiscard]] std::int32_t int32Setting(const Settings& settings, const wchar_t* key,
                                        std::int32_t fallback);

}  // namespace corvid
