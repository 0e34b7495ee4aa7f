// The system's folders.
#pragma once

#include "platform/folders.h"

namespace corvid {

class WindowsFolders : public Folders {
 public:
  std::wstring SHgetFolder(int csidl) override;
  std::wstring current() override;
};

}  // namespace corvid
