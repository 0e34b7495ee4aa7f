// The host's message loop, message boxes and the user's folders, as Windows has them.
#pragma once

#include "basic/code_page.h"
#include "port/host.h"

namespace corvid {

// Whether a person could see and answer a window of this process.
[[nodiscard]] bool hasInteractiveDesktop();

class WindowsHostYield : public HostYield {
 public:
  void yield() override;
};

class WindowsMessageDialog : public MessageDialog {
 public:
  void show(const std::wstring& text, const std::wstring& title, MessageIcon icon) override;
};

class WindowsShellFolders : public ShellFolders {
 public:
  explicit WindowsShellFolders(const CodePage& codePage) : codePage_(codePage) {}
  std::wstring SHgetFolder(int csidl) override;

 private:
  const CodePage& codePage_;
};

}  // namespace corvid
