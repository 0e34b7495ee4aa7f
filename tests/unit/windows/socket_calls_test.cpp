// The system's sockets against a listener of the test's own.
#include "windows/socket_calls.h"

#include <gtest/gtest.h>
#include <winsock2.h>

#include <algorithm>
#include <string>

namespace corvid {
namespace {

constexpr double kSeconds = 5;

// Takes connections on a free port of this machine.
class Listener {
 public:
  Listener() {
    WSADATA data{};
    EXPECT_EQ(WSAStartup(MAKEWORD(2, 2), &data), 0);
    socket_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(listen(socket_, 1), 0);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() {
    closesocket(socket_);
    WSACleanup();
  }

  [[nodiscard]] std::uint16_t port() const {
    sockaddr_in address{};
    int size = sizeof address;
    EXPECT_EQ(getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size), 0);
    return ntohs(address.sin_port);
  }
  [[nodiscard]] SOCKET accepted() const { return accept(socket_, nullptr, nullptr); }

 private:
  SOCKET socket_;
};

SocketHandle connecting(WindowsSocketCalls& calls, std::uint16_t port) {
  std::vector<SocketAddress> ways;
  EXPECT_TRUE(calls.resolve(L"127.0.0.1", port, ways));
  EXPECT_EQ(ways.size(), 1U);
  const SocketHandle handle = calls.create(ways.front());
  EXPECT_NE(handle, kInvalidSocket);
  DWORD flags = HANDLE_FLAG_INHERIT;
  EXPECT_NE(GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags), FALSE);
  EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0U) << "a host's child would keep the printer";
  EXPECT_FALSE(calls.connect(handle, ways.front()));
  EXPECT_EQ(calls.lastError(), kErrorWouldBlock);
  bool isReady = false;
  EXPECT_TRUE(calls.awaitWriting(handle, kSeconds, isReady));
  EXPECT_TRUE(isReady);
  return handle;
}

TEST(SocketCalls, MoveBytesWithoutWaitingAndTellTheHangUp) {
  const Listener listener;
  WindowsSocketCalls calls;
  const SocketHandle handle = connecting(calls, listener.port());
  EXPECT_TRUE(calls.isConnected(handle));
  const SOCKET peer = listener.accepted();
  char buffer[8];
  std::uint32_t count = 7;
  EXPECT_FALSE(calls.receive(handle, buffer, sizeof buffer, count));
  EXPECT_EQ(calls.lastError(), kErrorWouldBlock);
  EXPECT_EQ(count, 0U);
  EXPECT_TRUE(calls.send(handle, std::string("a\0b", 3), count));
  EXPECT_EQ(count, 3U);
  EXPECT_EQ(recv(peer, buffer, sizeof buffer, 0), 3);
  closesocket(peer);
  while (!calls.receive(handle, buffer, sizeof buffer, count)) {
    ASSERT_EQ(calls.lastError(), kErrorWouldBlock);
  }
  EXPECT_EQ(count, 0U);
  EXPECT_TRUE(calls.close(handle));
  EXPECT_FALSE(calls.close(handle));
}

TEST(SocketCalls, ClosingDropsWhatIsUnsentWhereThatIsWanted) {
  const Listener listener;
  WindowsSocketCalls calls;
  const SocketHandle handle = connecting(calls, listener.port());
  const SOCKET peer = listener.accepted();
  std::string buffer(65536, 'a');
  std::uint32_t count = 0;
  std::size_t sent = 0;
  while (calls.send(handle, buffer, count)) sent += count;
  EXPECT_EQ(calls.lastError(), kErrorWouldBlock);
  bool isReady = true;
  EXPECT_TRUE(calls.awaitWriting(handle, 0.01, isReady));
  EXPECT_FALSE(isReady) << "nobody reads";
  EXPECT_TRUE(calls.dropUnsent(handle));
  EXPECT_TRUE(calls.close(handle));
  EXPECT_FALSE(calls.dropUnsent(handle));
  std::size_t arrived = 0;
  for (int read = 1; read > 0; arrived += static_cast<std::size_t>(std::max(read, 0))) {
    read = recv(peer, buffer.data(), static_cast<int>(buffer.size()), 0);
  }
  EXPECT_LT(arrived, sent);
  closesocket(peer);
}

TEST(SocketCalls, NameThatIsNotThereTellsWhy) {
  const Listener listener;  // starts the sockets
  WindowsSocketCalls calls;
  std::vector<SocketAddress> ways;
  EXPECT_FALSE(calls.resolve(L"no.such.name.invalid", listener.port(), ways));
  EXPECT_NE(calls.lastError(), 0U);
}

}  // namespace
}  // namespace corvid
