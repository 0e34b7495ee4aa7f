#include "tools/diagnostico/output_windows.h"

#include "basic/text.h"
#include "windows/kernel_handle.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace corvid {
namespace {

constexpr std::size_t kConsolePiece = 8000;  // a console takes less than 64 KB at once

std::string utf8(const std::wstring& text) {
  const std::wstring lines = replaceAll(text, L"\n", L"\r\n");
  const int length = static_cast<int>(lines.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, lines.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, lines.data(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

bool writeBytes(HANDLE handle, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    if (WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ==
            FALSE ||
        written == 0) {
      return false;
    }
    bytes.remove_prefix(written);
  }
  return true;
}

void writeToConsole(HANDLE console, std::wstring_view text) {
  while (!text.empty()) {
    const std::wstring_view piece = text.substr(0, kConsolePiece);
    DWORD written = 0;
    if (WriteConsoleW(console, piece.data(), static_cast<DWORD>(piece.size()), &written, nullptr) ==
            FALSE ||
        written == 0) {
      return;
    }
    text.remove_prefix(written);
  }
}

}  // namespace

void writeToStandard(DWORD which, const std::wstring& text) {
  auto* const handle = GetStdHandle(which);
  DWORD mode = 0;
  if (GetConsoleMode(handle, &mode) != FALSE) {
    writeToConsole(handle, text);
  } else {
    static_cast<void>(writeBytes(handle, utf8(text)));
  }
}

bool writeFile(const std::wstring& file, const std::wstring& text) {
  const FileHandle handle(CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  return handle && writeBytes(handle.get(), utf8(text));
}

}  // namespace corvid
