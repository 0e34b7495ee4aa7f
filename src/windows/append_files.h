// Files that only grow, by the system's calls.
#pragma once

#include "platform/append_file.h"

namespace corvid {

class WindowsAppendFiles : public AppendFiles {
 public:
  std::unique_ptr<AppendFile> open(const std::wstring& path, std::wstring& reason) override;
};

}  // namespace corvid
