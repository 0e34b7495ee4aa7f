// Seams to the host's desktop: its message loop, message boxes and the user's folders.
#pragma once

#include <string>

namespace corvid {

class HostYield {
 public:
  virtual ~HostYield() = default;
  // Runs the host's message loop once for what is pending. The host may call into the library
  // meanwhile. A quit message is put back for the host to find.
  virtual void yield() = 0;
};

enum class MessageIcon { None, Critical, Exclamation };

class MessageDialog {
 public:
  virtual ~MessageDialog() = default;
  // Shows a modal box with an OK button; an empty title is replaced by the library's own. Returns
  // when the user has closed it, at once where the process has no interactive desktop.
  virtual void show(const std::wstring& text, const std::wstring& title, MessageIcon icon) = 0;
};

// The documents folder's number in the shell's list (CSIDL_PERSONAL).
constexpr int kDocumentsFolder = 5;

class ShellFolders {
 public:
  virtual ~ShellFolders() = default;
  // The path of a special folder of the shell, without a trailing backslash; empty on failure.
  [[nodiscard]] virtual std::wstring SHgetFolder(int csidl) = 0;
};

}  // namespace corvid
