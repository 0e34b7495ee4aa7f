// The seam to the system's folders.
#pragma once

#include <string>

namespace corvid {

// The documents folder's number in the shell's list (CSIDL_PERSONAL).
constexpr int kDocumentsFolder = 5;

class Folders {
 public:
  virtual ~Folders() = default;
  // The path of a special folder of the shell, without a trailing backslash; empty on failure.
  [[nodiscard]] virtual std::wstring SHgetFolder(int csidl) = 0;
  // The process's current folder, whole; "." where the system does not tell it.
  [[nodiscard]] virtual std::wstring current() = 0;
};

}  // namespace corvid
