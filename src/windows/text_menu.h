// The menu of a text that its user asks for with the right mouse button or the menu key.
#pragma once

#include <windows.h>

namespace corvid {

// Copies what is selected, or selects everything, as the user says. The place is that of
// WM_CONTEXTMENU: on the screen, or -1 for the caret.
void showTextMenu(HWND box, LPARAM place);

}  // namespace corvid
