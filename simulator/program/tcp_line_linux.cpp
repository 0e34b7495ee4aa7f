// A TCP port, for hosts that find their printer in the network.
#include "simulator/program/descriptor_linux.h"
#include "simulator/program/host_line.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <array>

namespace corvid::simulator {
namespace {

sockaddr_in systemAddress(const ListenAddress& address) {
  sockaddr_in system{};
  system.sin_family = AF_INET;
  system.sin_port = htons(address.port);
  if (inet_pton(AF_INET, address.host.c_str(), &system.sin_addr) != 1) {
    throw std::system_error(EINVAL, std::generic_category(), address.host);
  }
  return system;
}

void setFlag(const Descriptor& socket, int level, int option) {
  const int on = 1;
  checked(setsockopt(socket.get(), level, option, &on, sizeof on), "setsockopt");
}

class TcpLine : public HostLine {
 public:
  explicit TcpLine(const ListenAddress& address)
      : host_(address.host),
        listener_(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0), "socket") {
    const sockaddr_in system = systemAddress(address);
    // A program that begins again finds its port free.
    setFlag(listener_, SOL_SOCKET, SO_REUSEADDR);
    checked(bind(listener_.get(), reinterpret_cast<const sockaddr*>(&system), sizeof system),
            "bind");
    checked(listen(listener_.get(), 1), "listen");
  }

  [[nodiscard]] std::string name() const override {
    sockaddr_in system{};
    socklen_t size = sizeof system;
    checked(getsockname(listener_.get(), reinterpret_cast<sockaddr*>(&system), &size),
            "getsockname");
    return host_ + ":" + std::to_string(ntohs(system.sin_port));
  }

  [[nodiscard]] int descriptor() const override {
    return connection_ ? connection_.get() : listener_.get();
  }

  [[nodiscard]] std::optional<std::string> receive() override {
    if (!connection_) {
      takeNextHost();
      return "";
    }
    std::array<char, 4096> buffer{};
    const ssize_t count = recv(connection_.get(), buffer.data(), buffer.size(), 0);
    if (count > 0) {
      return std::string(buffer.data(), static_cast<std::size_t>(count));
    }
    if (count < 0 && errno == EAGAIN) {
      return "";
    }
    connection_ = {};
    return std::nullopt;
  }

  void hangUp() override { connection_ = {}; }

  // A host that has gone is noticed by the next receive.
  [[nodiscard]] std::size_t send(std::string_view bytes) override {
    const ssize_t count = ::send(connection_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
  }

 private:
  void takeNextHost() {
    const int number = accept4(listener_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (number >= 0) {
      connection_ = Descriptor(number, "accept4");
      setFlag(connection_, IPPROTO_TCP, TCP_NODELAY);
    }
  }

  std::string host_;
  Descriptor listener_;
  Descriptor connection_;
};

}  // namespace

std::unique_ptr<HostLine> openTcp(const ListenAddress& address) {
  return std::make_unique<TcpLine>(address);
}

}  // namespace corvid::simulator
