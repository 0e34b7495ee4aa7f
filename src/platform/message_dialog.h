// The seam to message boxes.
#pragma once

#include <string>

namespace corvid {

enum class MessageIcon { None, Critical, Exclamation };

class MessageDialog {
 public:
  virtual ~MessageDialog() = default;
  // Shows a modal box with an OK button; an empty title is replaced by the library's own. Returns
  // when the user has closed it, at once where the process has no interactive desktop.
  virtual void show(const std::wstring& text, const std::wstring& title, MessageIcon icon) = 0;
};

}  // namespace corvid
