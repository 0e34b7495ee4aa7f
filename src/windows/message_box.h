// Message boxes as this library shows them.
#pragma once

#include "platform/message_dialog.h"

#include <windows.h>

#include <string>

namespace corvid {

// Where the windows of a process appear.
struct Desktop {
  bool isVisible = false;  // its window station is on a screen
  DWORD session = 0;       // session 0 is that of services: nobody sees its windows
};
[[nodiscard]] Desktop currentDesktop();

// Whether a person could see and answer a window there.
[[nodiscard]] constexpr bool isInteractive(const Desktop& desktop) {
  return desktop.isVisible && desktop.session != 0;
}
[[nodiscard]] inline bool hasInteractiveDesktop() { return isInteractive(currentDesktop()); }

// Modal to all windows of the thread; without an owner it comes to the front and stays on top, or
// it might wait behind the host's windows. An empty title is replaced by the library's name.
// `buttons` is MB_OK or its like. Returns the identifier of the button that the user pushed.
int showMessageBox(HWND owner, const std::wstring& text, const std::wstring& title, UINT buttons,
                   MessageIcon icon);

class WindowsMessageDialog : public MessageDialog {
 public:
  void show(const std::wstring& text, const std::wstring& title, MessageIcon icon) override;
};

}  // namespace corvid
