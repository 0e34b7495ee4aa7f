// A TCP port, for hosts that find their printer in the network.
#include "simulator/program/host_line.h"

#include <winsock2.h>

#include <array>
#include <system_error>
#include <utility>

namespace corvid::simulator {
namespace {

int checked(int result, const char* call) {
  if (result == SOCKET_ERROR) {
    throw std::system_error(WSAGetLastError(), std::system_category(), call);
  }
  return result;
}

// The system's sockets, for as long as this lives.
class Sockets {
 public:
  Sockets() {
    WSADATA data{};
    const int failure = WSAStartup(MAKEWORD(2, 2), &data);
    if (failure != 0) {
      throw std::system_error(failure, std::system_category(), "WSAStartup");
    }
  }
  Sockets(const Sockets&) = delete;
  Sockets& operator=(const Sockets&) = delete;
  ~Sockets() { WSACleanup(); }
};

class Socket {
 public:
  Socket() = default;
  explicit Socket(SOCKET number) : number_(number) {}
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  Socket(Socket&& other) noexcept : number_(std::exchange(other.number_, INVALID_SOCKET)) {}
  Socket& operator=(Socket&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Socket() {
    if (*this) {
      closesocket(number_);
    }
  }

  [[nodiscard]] SOCKET get() const { return number_; }
  explicit operator bool() const { return number_ != INVALID_SOCKET; }

 private:
  SOCKET number_ = INVALID_SOCKET;
};

sockaddr_in systemAddress(const ListenAddress& address) {
  sockaddr_in system{};
  system.sin_family = AF_INET;
  system.sin_port = htons(address.port);
  system.sin_addr.s_addr = inet_addr(address.host.c_str());
  return system;
}

void makeNonBlocking(const Socket& socket) {
  u_long on = 1;
  checked(ioctlsocket(socket.get(), static_cast<long>(FIONBIO), &on), "ioctlsocket");
}

class TcpLine : public HostLine {
 public:
  explicit TcpLine(const ListenAddress& address)
      : host_(address.host), listener_(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)) {
    checked(listener_ ? 0 : SOCKET_ERROR, "socket");
    // Otherwise a second program could listen at the same address, and take the hosts.
    const BOOL isOn = TRUE;
    checked(setsockopt(listener_.get(), SOL_SOCKET, SO_EXCLUSIVEADDRUSE,
                       reinterpret_cast<const char*>(&isOn), sizeof isOn),
            "setsockopt");
    const sockaddr_in system = systemAddress(address);
    checked(bind(listener_.get(), reinterpret_cast<const sockaddr*>(&system), sizeof system),
            "bind");
    checked(listen(listener_.get(), 1), "listen");
    makeNonBlocking(listener_);
  }

  [[nodiscard]] std::string name() const override {
    sockaddr_in system{};
    int size = sizeof system;
    checked(getsockname(listener_.get(), reinterpret_cast<sockaddr*>(&system), &size),
            "getsockname");
    return host_ + ":" + std::to_string(ntohs(system.sin_port));
  }

  [[nodiscard]] std::optional<std::string> receive() override {
    if (!connection_) {
      takeNextHost();
      return "";
    }
    std::array<char, 4096> buffer{};
    const int count = recv(connection_.get(), buffer.data(), static_cast<int>(buffer.size()), 0);
    if (count > 0) {
      return std::string(buffer.data(), static_cast<std::size_t>(count));
    }
    if (count < 0 && WSAGetLastError() == WSAEWOULDBLOCK) {
      return "";
    }
    connection_ = {};
    return std::nullopt;
  }

  void hangUp() override { connection_ = {}; }

  // A host that has gone is noticed by the next receive.
  [[nodiscard]] std::size_t send(std::string_view bytes) override {
    const int count = ::send(connection_.get(), bytes.data(), static_cast<int>(bytes.size()), 0);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
  }

 private:
  void takeNextHost() {
    Socket next(accept(listener_.get(), nullptr, nullptr));
    if (!next) {
      return;
    }
    makeNonBlocking(next);
    const BOOL on = TRUE;
    checked(setsockopt(next.get(), IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on),
                       sizeof on),
            "setsockopt");
    connection_ = std::move(next);
  }

  Sockets sockets_;
  std::string host_;
  Socket listener_;
  Socket connection_;
};

}  // namespace

std::unique_ptr<HostLine> openTcp(const ListenAddress& address) {
  return std::make_unique<TcpLine>(address);
}

}  // namespace corvid::simulator
