#include "windows/socket_calls.h"

#include "windows/owned_handle.h"
#include "windows/system_message.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <algorithm>

namespace corvid {
namespace {

static_assert(kInvalidSocket == static_cast<SocketHandle>(INVALID_SOCKET));
static_assert(kErrorWouldBlock == WSAEWOULDBLOCK && kErrorTimedOut == WSAETIMEDOUT &&
              kErrorDisconnected == WSAEDISCON && kErrorHostNotFound == WSAHOST_NOT_FOUND);

struct AddressListTraits {
  using Type = ADDRINFOW*;
  static constexpr Type none() { return nullptr; }
  static void release(Type list) { FreeAddrInfoW(list); }
};
using AddressList = Owned<AddressListTraits>;

SOCKET toSocket(SocketHandle handle) { return static_cast<SOCKET>(handle); }

const sockaddr* toSystem(const SocketAddress& way) {
  return reinterpret_cast<const sockaddr*>(way.bytes.data());
}

SocketAddress fromSystem(const ADDRINFOW& entry) {
  return {std::string(reinterpret_cast<const char*>(entry.ai_addr), entry.ai_addrlen)};
}

int sizeOf(const SocketAddress& way) { return static_cast<int>(way.bytes.size()); }

timeval toTimeval(double seconds) {
  const auto microseconds = static_cast<long>(seconds * 1e6);
  return {microseconds / 1'000'000, microseconds % 1'000'000};
}

// Without waiting, and without holding a block back until the one before is confirmed.
bool setUp(SOCKET socket) {
  u_long isNonBlocking = 1;
  const BOOL isUndelayed = TRUE;
  return ioctlsocket(socket, static_cast<long>(FIONBIO), &isNonBlocking) == 0 &&
         setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&isUndelayed),
                    sizeof isUndelayed) == 0;
}

}  // namespace

WindowsSocketCalls::~WindowsSocketCalls() {
  if (isStarted_) WSACleanup();
}

bool WindowsSocketCalls::keepError(int result) {
  lastError_ = result != SOCKET_ERROR ? 0 : static_cast<std::uint32_t>(WSAGetLastError());
  return result != SOCKET_ERROR;
}

bool WindowsSocketCalls::start() {
  if (isStarted_) return true;
  WSADATA data{};
  lastError_ = static_cast<std::uint32_t>(WSAStartup(MAKEWORD(2, 2), &data));
  isStarted_ = lastError_ == 0;
  return isStarted_;
}

bool WindowsSocketCalls::resolve(const std::wstring& host, std::uint16_t port,
                                 std::vector<SocketAddress>& found) {
  if (!start()) return false;
  ADDRINFOW wanted{};
  wanted.ai_family = AF_UNSPEC;
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_protocol = IPPROTO_TCP;
  AddressList list;
  lastError_ = static_cast<std::uint32_t>(
      GetAddrInfoW(host.c_str(), std::to_wstring(port).c_str(), &wanted, list.put()));
  if (lastError_ != 0) return false;
  for (const ADDRINFOW* entry = list.get(); entry != nullptr; entry = entry->ai_next) {
    found.push_back(fromSystem(*entry));
  }
  return true;
}

SocketHandle WindowsSocketCalls::create(const SocketAddress& way) {
  // A process that the host starts must not keep the connection open.
  const SOCKET socket = WSASocketW(toSystem(way)->sa_family, SOCK_STREAM, IPPROTO_TCP, nullptr, 0,
                                   WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
  keepError(socket != INVALID_SOCKET ? 0 : SOCKET_ERROR);
  if (socket == INVALID_SOCKET) return kInvalidSocket;
  if (setUp(socket)) return static_cast<SocketHandle>(socket);
  keepError(SOCKET_ERROR);
  closesocket(socket);
  return kInvalidSocket;
}

bool WindowsSocketCalls::close(SocketHandle handle) {
  return keepError(closesocket(toSocket(handle)));
}

bool WindowsSocketCalls::dropUnsent(SocketHandle handle) {
  const LINGER atOnce{1, 0};
  return keepError(setsockopt(toSocket(handle), SOL_SOCKET, SO_LINGER,
                              reinterpret_cast<const char*>(&atOnce), sizeof atOnce));
}

bool WindowsSocketCalls::connect(SocketHandle handle, const SocketAddress& way) {
  return keepError(::connect(toSocket(handle), toSystem(way), sizeOf(way)));
}

bool WindowsSocketCalls::awaitWriting(SocketHandle handle, double seconds, bool& isReady) {
  fd_set writable;
  fd_set failed;  // where a connecting that failed is told
  FD_ZERO(&writable);
  FD_ZERO(&failed);
  writable.fd_array[writable.fd_count++] = toSocket(handle);
  failed.fd_array[failed.fd_count++] = toSocket(handle);
  timeval wait = toTimeval(seconds);
  const int count = select(0, nullptr, &writable, &failed, &wait);
  isReady = count > 0;
  return keepError(count);
}

bool WindowsSocketCalls::isConnected(SocketHandle handle) {
  int error = 0;
  int size = sizeof error;
  if (!keepError(getsockopt(toSocket(handle), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error),
                            &size))) {
    return false;
  }
  lastError_ = static_cast<std::uint32_t>(error);
  return error == 0;
}

bool WindowsSocketCalls::receive(SocketHandle handle, char* buffer, std::uint32_t size,
                                 std::uint32_t& count) {
  const int read = recv(toSocket(handle), buffer, static_cast<int>(size), 0);
  count = static_cast<std::uint32_t>(std::max(read, 0));
  return keepError(read);
}

bool WindowsSocketCalls::send(SocketHandle handle, std::string_view bytes, std::uint32_t& count) {
  const int sent = ::send(toSocket(handle), bytes.data(), static_cast<int>(bytes.size()), 0);
  count = static_cast<std::uint32_t>(std::max(sent, 0));
  return keepError(sent);
}

std::wstring WindowsSocketCalls::errorMessage(std::uint32_t number) {
  return systemMessage(number);
}

}  // namespace corvid
