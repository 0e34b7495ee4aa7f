// The seam to the system's sockets: one member per step, so that each can be made to fail.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

using SocketHandle = std::intptr_t;
constexpr SocketHandle kInvalidSocket = -1;  // Windows: INVALID_SOCKET

// One way to a host, in the system's own form.
struct SocketAddress {
  std::string bytes;
};

// System error numbers that the transport tells apart (from Windows).
constexpr std::uint32_t kErrorWouldBlock = 10035;
constexpr std::uint32_t kErrorTimedOut = 10060;
constexpr std::uint32_t kErrorDisconnected = 10101;
constexpr std::uint32_t kErrorHostNotFound = 11001;

// Each member but the last two returns false (create: kInvalidSocket) on failure, and lastError
// then gives the system's number. None but resolve and awaitWriting waits. One thread.
class SocketCalls {
 public:
  virtual ~SocketCalls() = default;

  // The ways to a host and port, the best one first. An address with dots is answered at once; for
  // a name the system may ask the network, for as long as it sees fit.
  virtual bool resolve(const std::wstring& host, std::uint16_t port,
                       std::vector<SocketAddress>& found) = 0;
  // A stream socket for that way that never waits and sends small writes at once.
  virtual SocketHandle create(const SocketAddress& way) = 0;
  virtual bool close(SocketHandle handle) = 0;
  // Lets the closing, when it comes, drop the bytes that have not reached the peer yet, where it
  // would go on to send them.
  virtual bool dropUnsent(SocketHandle handle) = 0;
  // Begins to connect; fails with kErrorWouldBlock while that is under way.
  virtual bool connect(SocketHandle handle, const SocketAddress& way) = 0;
  // Waits until the socket takes bytes, or its connecting came to an end; isReady is false where
  // that many seconds passed before.
  virtual bool awaitWriting(SocketHandle handle, double seconds, bool& isReady) = 0;
  // How the connecting ended.
  virtual bool isConnected(SocketHandle handle) = 0;
  // Reads at most `size` bytes into `buffer`; `count` is what came, 0 where the peer has hung up.
  // Fails with kErrorWouldBlock while nothing is there.
  virtual bool receive(SocketHandle handle, char* buffer, std::uint32_t size,
                       std::uint32_t& count) = 0;
  // `count` is what the system took. Fails with kErrorWouldBlock while it takes nothing.
  virtual bool send(SocketHandle handle, std::string_view bytes, std::uint32_t& count) = 0;

  virtual std::uint32_t lastError() = 0;
  // The system's words for an error number, without a trailing line break.
  virtual std::wstring errorMessage(std::uint32_t number) = 0;
};

}  // namespace corvid
