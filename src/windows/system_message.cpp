#include "windows/system_message.h"

namespace corvid {

std::wstring systemMessage(DWORD number) {
  wchar_t buffer[512];
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, number, 0, buffer, 512, nullptr);
  std::wstring text(buffer, length);
  while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n' || text.back() == L' ')) {
    text.pop_back();
  }
  return text;
}

}  // namespace corvid
