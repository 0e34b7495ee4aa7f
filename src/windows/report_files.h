// The files that reports are saved to.
#pragma once

#include "preview/report_files.h"
#include "windows/kernel_handle.h"

#include <string>
#include <string_view>

namespace corvid {

class WindowsReportFiles : public ReportFiles {
 public:
  [[nodiscard]] std::string encoded(std::wstring_view text) override;
  [[nodiscard]] std::wstring create(const std::wstring& path) override;
  [[nodiscard]] std::wstring write(std::string_view bytes) override;
  [[nodiscard]] std::wstring finish() override;
  [[nodiscard]] std::wstring putInPlace(const std::wstring& beside,
                                        const std::wstring& path) override;
  void remove(const std::wstring& path) noexcept override;

 private:
  FileHandle file_;
};

// In a code page, or in UTF-8 with its mark where the page has not every character exactly.
[[nodiscard]] std::string encodedForFile(std::wstring_view text, unsigned codePage);

}  // namespace corvid
