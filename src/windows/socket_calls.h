// The system's sockets.
#pragma once

#include "transport/socket_calls.h"

namespace corvid {

// Starts the system's sockets with the first call that needs them.
class WindowsSocketCalls : public SocketCalls {
 public:
  WindowsSocketCalls() = default;
  WindowsSocketCalls(const WindowsSocketCalls&) = delete;
  WindowsSocketCalls& operator=(const WindowsSocketCalls&) = delete;
  ~WindowsSocketCalls() override;

  bool resolve(const std::wstring& host, std::uint16_t port,
               std::vector<SocketAddress>& found) override;
  SocketHandle create(const SocketAddress& way) override;
  bool close(SocketHandle handle) override;
  bool dropUnsent(SocketHandle handle) override;
  bool connect(SocketHandle handle, const SocketAddress& way) override;
  bool awaitWriting(SocketHandle handle, double seconds, bool& isReady) override;
  bool isConnected(SocketHandle handle) override;
  bool receive(SocketHandle handle, char* buffer, std::uint32_t size,
               std::uint32_t& count) override;
  bool send(SocketHandle handle, std::string_view bytes, std::uint32_t& count) override;
  std::uint32_t lastError() override { return lastError_; }
  std::wstring errorMessage(std::uint32_t number) override;

 private:
  bool keepError(int result);
  bool start();

  bool isStarted_ = false;
  std::uint32_t lastError_ = 0;  // of the last call here, whatever the process called since
};

}  // namespace corvid
