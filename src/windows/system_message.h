// The system's words for its error numbers.
#pragma once

#include <windows.h>

#include <string>

namespace corvid {

// Without a trailing line break; empty for a number without words.
[[nodiscard]] std::wstring systemMessage(DWORD number);

}  // namespace corvid
