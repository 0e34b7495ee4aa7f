#include "transport/tcp_address.h"

#include "basic/text.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::wstring_view kScheme = L"tcp:";
constexpr std::size_t kLongestHost = 253;
constexpr std::size_t kMostPortDigits = 5;
constexpr std::uint32_t kHighestPortNumber = 65535;

bool isHostCharacter(wchar_t character) {
  return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z') ||
         isDigit(character) || character == L'.' || character == L'-' || character == L'_';
}

bool isHost(std::wstring_view text) {
  return !text.empty() && text.size() <= kLongestHost && std::ranges::all_of(text, isHostCharacter);
}

std::optional<std::uint16_t> portOf(std::wstring_view digits) {
  if (digits.size() > kMostPortDigits || !std::ranges::all_of(digits, isDigit)) return std::nullopt;
  std::uint32_t number = 0;
  for (const wchar_t digit : digits)
    number = 10 * number + static_cast<std::uint32_t>(digit - L'0');
  if (number == 0 || number > kHighestPortNumber) return std::nullopt;
  return static_cast<std::uint16_t>(number);
}

}  // namespace

std::optional<TcpAddress> parseTcpAddress(std::wstring_view text) {
  if (!equalIgnoringCase(text.substr(0, kScheme.size()), kScheme)) return std::nullopt;
  text.remove_prefix(kScheme.size());
  const std::size_t colon = text.find(L':');
  if (colon == std::wstring_view::npos || !isHost(text.substr(0, colon))) return std::nullopt;
  const std::optional<std::uint16_t> port = portOf(text.substr(colon + 1));
  if (!port) return std::nullopt;
  return TcpAddress{std::wstring(text.substr(0, colon)), *port};
}

}  // namespace corvid
