#include "windows/message_box.h"

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

bool hasInteractiveDesktop() {
  USEROBJECTFLAGS flags{};
  const BOOL known = GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags,
                                               sizeof flags, nullptr);
  return known != FALSE && (flags.dwFlags & WSF_VISIBLE) != 0;
}

int showMessageBox(HWND owner, const std::wstring& text, const std::wstring& title, UINT buttons,
                   MessageIcon icon) {
  return MessageBoxW(owner, text.c_str(), title.empty() ? kLibraryTitle : title.c_str(),
                     buttons | MB_TASKMODAL | iconFlag(icon));
}

void WindowsMessageDialog::show(const std::wstring& text, const std::wstring& title,
                                MessageIcon icon) {
  if (hasInteractiveDesktop()) showMessageBox(GetActiveWindow(), text, title, MB_OK, icon);
}

}  // namespace corvid
