// A socket that is open.
#pragma once

#include "transport/socket_calls.h"

#include <utility>

namespace corvid {

// Closes it at its end. The calls outlive it.
class OwnedSocket {
 public:
  OwnedSocket() = default;
  // Owns nothing where the handle is kInvalidSocket.
  OwnedSocket(SocketCalls& calls, SocketHandle handle) : calls_(&calls), handle_(handle) {}
  OwnedSocket(const OwnedSocket&) = delete;
  OwnedSocket& operator=(const OwnedSocket&) = delete;
  OwnedSocket(OwnedSocket&& other) noexcept
      : calls_(other.calls_), handle_(std::exchange(other.handle_, kInvalidSocket)) {}
  OwnedSocket& operator=(OwnedSocket&& other) noexcept {
    std::swap(calls_, other.calls_);
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~OwnedSocket() { close(); }

  // False where the system refuses; nothing is owned then either.
  bool close() {
    const SocketHandle handle = std::exchange(handle_, kInvalidSocket);
    return handle == kInvalidSocket || calls_->close(handle);
  }

  [[nodiscard]] SocketHandle get() const { return handle_; }
  explicit operator bool() const { return handle_ != kInvalidSocket; }

 private:
  SocketCalls* calls_ = nullptr;
  SocketHandle handle_ = kInvalidSocket;
};

}  // namespace corvid
