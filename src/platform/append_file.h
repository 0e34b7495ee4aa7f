// The seam to files that only grow: trace and port dump.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace corvid {

// Open from creation to destruction; others may read, write, rename and delete the file meanwhile.
class AppendFile {
 public:
  virtual ~AppendFile() = default;
  // Adds the bytes at the file's end by one system call, so that nothing of them is lost when the
  // process ends right after it. False when they were not written whole.
  [[nodiscard]] virtual bool append(std::string_view bytes) = 0;
};

class AppendFiles {
 public:
  virtual ~AppendFiles() = default;
  // Opens the file, or makes it; nothing on failure, and then `reason` holds the system's words.
  [[nodiscard]] virtual std::unique_ptr<AppendFile> open(const std::wstring& path,
                                                         std::wstring& reason) = 0;
};

}  // namespace corvid
