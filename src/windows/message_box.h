// Message boxes as this library shows them.
#pragma once

#include "port/host.h"

#include <windows.h>

#include <string>

namespace corvid {

// Modal to the thread's windows; an empty title is replaced by the library's name. `buttons` is
// MB_OK or its like. Returns the identifier of the button that the user pushed.
int showMessageBox(HWND owner, const std::wstring& text, const std::wstring& title, UINT buttons,
                   MessageIcon icon);

}  // namespace corvid
