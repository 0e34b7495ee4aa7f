// What Windows tells of itself, for people.
#pragma once

#include <string>

namespace corvid {

// The true version, such as "10.0.19045", whatever the host's manifest asks for; empty where the
// system does not tell.
[[nodiscard]] std::wstring windowsVersion();

// The code page and the user's locale, such as "1252, es-VE".
[[nodiscard]] std::wstring regionText();

}  // namespace corvid
