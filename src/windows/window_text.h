// What a window or a control holds as its text.
#pragma once

#include <windows.h>

#include <string>

namespace corvid {

// The whole text; empty for a window that has none, or has gone. On the window's thread.
[[nodiscard]] std::wstring windowText(HWND window);

}  // namespace corvid
