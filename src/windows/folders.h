// The system's folders.
#pragma once

#include "basic/code_page.h"
#include "platform/folders.h"

namespace corvid {

class WindowsFolders : public Folders {
 public:
  explicit WindowsFolders(const CodePage& codePage) : codePage_(codePage) {}
  std::wstring SHgetFolder(int csidl) override;

 private:
  const CodePage& codePage_;
};

}  // namespace corvid
