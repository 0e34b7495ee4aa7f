#include "windows/host.h"

#include "windows/message_box.h"
#include "windows/owned_handle.h"

#include <windows.h>
// Needs windows.h in front of it.
#include <shlobj.h>

#include <array>

namespace corvid {
namespace {

// A host whose messages never end must not hold the exchange for ever.
constexpr int kMostMessages = 1000;

struct ItemListTraits {
  using Type = LPITEMIDLIST;
  static constexpr Type none() { return nullptr; }
  static void release(Type list) { CoTaskMemFree(list); }
};

}  // namespace

bool hasInteractiveDesktop() {
  USEROBJECTFLAGS flags{};
  const BOOL known = GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags,
                                               sizeof flags, nullptr);
  return known != FALSE && (flags.dwFlags & WSF_VISIBLE) != 0;
}

void WindowsHostYield::yield() {
  MSG message;
  for (int i = 0; i < kMostMessages; ++i) {
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) return;
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void WindowsMessageDialog::show(const std::wstring& text, const std::wstring& title,
                                MessageIcon icon) {
  if (hasInteractiveDesktop()) showMessageBox(GetActiveWindow(), text, title, MB_OK, icon);
}

std::wstring WindowsShellFolders::SHgetFolder(int csidl) {
  Owned<ItemListTraits> list;
  std::array<char, MAX_PATH> path{};
  if (FAILED(SHGetSpecialFolderLocation(nullptr, csidl, list.put()))) return {};
  if (SHGetPathFromIDListA(list.get(), path.data()) == FALSE) return {};
  path.back() = '\0';
  return codePage_.decode(path.data());
}

}  // namespace corvid
