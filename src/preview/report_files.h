// How a report's text comes into a file: whole, or not at all.
#pragma once

#include <string>
#include <string_view>

namespace corvid {

// The seam to the files that reports are saved to. Each member but remove() returns the words for
// what went wrong, and nothing when all went well. One file at a time.
class ReportFiles {
 public:
  virtual ~ReportFiles() = default;

  // As plain text in the system's code page, or, where that cannot hold all of it exactly, in
  // UTF-8 with a mark.
  [[nodiscard]] virtual std::string encoded(std::wstring_view text) = 0;

  // What a process that ended in the middle left under that name goes.
  [[nodiscard]] virtual std::wstring create(const std::wstring& path) = 0;
  // To the file that was created.
  [[nodiscard]] virtual std::wstring write(std::string_view bytes) = 0;
  // Has it on the disk, and closed. It is closed after a failure too.
  [[nodiscard]] virtual std::wstring finish() = 0;
  // Gives the file beside the name of the other one, which goes, in one step.
  [[nodiscard]] virtual std::wstring putInPlace(const std::wstring& beside,
                                                const std::wstring& path) = 0;
  virtual void remove(const std::wstring& path) noexcept = 0;
};

// Writes the text beside the file and then puts it in its place, so that what was there stays until
// the new text is whole. Returns what went wrong; the old file then is as it was, and nothing is
// left beside it.
[[nodiscard]] std::wstring saveWhole(ReportFiles& files, const std::wstring& path,
                                     std::wstring_view text);

}  // namespace corvid
