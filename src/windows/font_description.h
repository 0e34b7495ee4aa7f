// Fonts of fixed pitch in the system's terms.
#pragma once

#include "preview/report_dialogs.h"

#include <windows.h>

namespace corvid {

inline constexpr double kPointsPerInch = 72;

// The font on a device of that resolution, at least one pixel high.
[[nodiscard]] LOGFONTW describeFont(const FontChoice& font, int dotsPerInch);

}  // namespace corvid
