// Dates as the printer writes them.
#pragma once

#include "basic/date.h"
#include "platform/clock.h"

#include <string_view>

namespace corvid {

// fecha: yymmdd (the year is 2000 + yy) or empty; hora: hhmm, hhmmss or empty. An empty fecha gives
// a time on the zero date. Whatever names no date gives the current date and time.
[[nodiscard]] Date ParseFechaHora(std::wstring_view fecha, std::wstring_view hora, Clock& clock);

}  // namespace corvid
