#include "windows/message_box.h"

#include "windows/disabled_windows.h"

#include <vector>

namespace corvid {
namespace {

constexpr const wchar_t* kLibraryTitle = L"PrinterFiscalCorvid";

UINT iconFlag(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical:
      return MB_ICONHAND;
    case MessageIcon::Exclamation:
      return MB_ICONEXCLAMATION;
    default:
      return 0;
  }
}

}  // namespace

Desktop currentDesktop() {
  Desktop desktop;
  USEROBJECTFLAGS flags{};
  const BOOL known = GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags,
                                               sizeof flags, nullptr);
  desktop.isVisible = known != FALSE && (flags.dwFlags & WSF_VISIBLE) != 0;
  ProcessIdToSessionId(GetCurrentProcessId(), &desktop.session);
  return desktop;
}

// With an owner the system disables that window alone; without one all of the thread, which it
// enables before the box goes, so that one of them becomes active again.
int showMessageBox(HWND owner, const std::wstring& text, const std::wstring& title, UINT buttons,
                   MessageIcon icon) {
  const UINT place = owner != nullptr ? 0 : MB_SETFOREGROUND | MB_TOPMOST;
  const DisabledWindows others(owner != nullptr ? threadWindowsBut(owner) : std::vector<HWND>());
  return MessageBoxW(owner, text.c_str(), title.empty() ? kLibraryTitle : title.c_str(),
                     buttons | MB_TASKMODAL | place | iconFlag(icon));
}

void WindowsMessageDialog::show(const std::wstring& text, const std::wstring& title,
                                MessageIcon icon) {
  if (hasInteractiveDesktop()) showMessageBox(GetActiveWindow(), text, title, MB_OK, icon);
}

}  // namespace corvid
