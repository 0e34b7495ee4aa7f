// A small dialog that asks for one line of text.
#pragma once

#include <windows.h>

#include <string>

namespace corvid {

// Modal to the owner, centred on it. The text that stood in the entry when the user accepted;
// empty when cancelled, or when the dialog cannot be shown.
[[nodiscard]] std::wstring askForText(HWND owner, const std::wstring& prompt,
                                      const std::wstring& title, const std::wstring& initial);

}  // namespace corvid
