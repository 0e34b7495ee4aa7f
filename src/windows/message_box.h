// Message boxes as this library shows them.
#pragma once

#include "platform/message_dialog.h"

#include <windows.h>

#include <string>

namespace corvid {

// Whether a person could see and answer a window of this process.
[[nodiscard]] bool hasInteractiveDesktop();

// Modal to the thread's windows; an empty title is replaced by the library's name. `buttons` is
// MB_OK or its like. Returns the identifier of the button that the user pushed.
int showMessageBox(HWND owner, const std::wstring& text, const std::wstring& title, UINT buttons,
                   MessageIcon icon);

class WindowsMessageDialog : public MessageDialog {
 public:
  void show(const std::wstring& text, const std::wstring& title, MessageIcon icon) override;
};

}  // namespace corvid
