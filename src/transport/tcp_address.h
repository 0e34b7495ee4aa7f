// Where a printer is in the network.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvid {

struct TcpAddress {
  std::wstring host;  // a name or an address with dots; letters, digits, ".", "-" and "_" of ASCII
  std::uint16_t port = 0;  // not 0

  // "tcp:" host ":" port.
  [[nodiscard]] std::wstring text() const { return L"tcp:" + host + L":" + std::to_wstring(port); }
};

// Reads "tcp:host:4000", "tcp" in upper or lower case, with nothing before, between or after; the
// host has at most 253 characters, the port is 1 to 65535 in at most five digits. Nothing for any
// other text.
[[nodiscard]] std::optional<TcpAddress> parseTcpAddress(std::wstring_view text);

}  // namespace corvid
