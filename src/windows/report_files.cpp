#include "windows/report_files.h"

#include "windows/system_message.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::size_t kMostBytes = 1 << 20;  // of one write

std::wstring failure(const wchar_t* call) {
  const DWORD error = GetLastError();
  return std::wstring(call) + L", error " + std::to_wstring(error) + L": " + systemMessage(error);
}

// The system asks about characters that are missing only of pages other than UTF-8, which has all.
std::string encode(std::wstring_view text, unsigned codePage, bool& isExact) {
  const auto length = static_cast<int>(text.size());
  const DWORD flags = codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL isReplaced = FALSE;
  BOOL* const asked = codePage == CP_UTF8 ? nullptr : &isReplaced;
  const int size =
      WideCharToMultiByte(codePage, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(codePage, flags, text.data(), length, bytes.data(), size, nullptr, asked);
  isExact = isReplaced == FALSE;
  return bytes;
}

}  // namespace

std::string encodedForFile(std::wstring_view text, unsigned codePage) {
  bool isExact = true;
  std::string bytes = encode(text, codePage, isExact);
  return isExact ? bytes : "\xEF\xBB\xBF" + encode(text, CP_UTF8, isExact);
}

std::string WindowsReportFiles::encoded(std::wstring_view text) {
  return encodedForFile(text, GetACP());
}

std::wstring WindowsReportFiles::create(const std::wstring& path) {
  file_ = FileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
  return file_ ? std::wstring() : failure(L"CreateFile");
}

std::wstring WindowsReportFiles::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostBytes));
    DWORD written = 0;
    if (WriteFile(file_.get(), bytes.data(), size, &written, nullptr) == FALSE || written == 0) {
      return failure(L"WriteFile");
    }
    bytes.remove_prefix(written);
  }
  return {};
}

std::wstring WindowsReportFiles::finish() {
  std::wstring words =
      FlushFileBuffers(file_.get()) != FALSE ? std::wstring() : failure(L"FlushFileBuffers");
  file_ = FileHandle();
  return words;
}

std::wstring WindowsReportFiles::putInPlace(const std::wstring& beside, const std::wstring& path) {
  const DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  return MoveFileExW(beside.c_str(), path.c_str(), flags) != FALSE ? std::wstring()
                                                                   : failure(L"MoveFileEx");
}

void WindowsReportFiles::remove(const std::wstring& path) noexcept { DeleteFileW(path.c_str()); }

}  // namespace corvid
