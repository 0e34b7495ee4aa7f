#include "windows/system_message.h"

#include <array>

namespace corvid {

std::wstring systemMessage(DWORD number) {
  std::array<wchar_t, 512> buffer{};
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, number, 0,
                     buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
  std::wstring text(buffer.data(), length);
  while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n' || text.back() == L' ')) {
    text.pop_back();
  }
  return text;
}

}  // namespace corvid
