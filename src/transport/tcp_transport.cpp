#include "transport/tcp_transport.h"

#include "platform/settings.h"
#include "transport/read_limits.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace corvid {
namespace {

constexpr double kConnectSeconds = 5;
constexpr double kWriteSeconds = 1;
constexpr double kAnswerSeconds = 1;  // a block takes less through a local network

CommError wrongAddress(std::int16_t port, const std::wstring& place) {
  return {kWrongAddress, std::wstring(kPlacesSection) + L"\\" + std::to_wstring(port),
          L"\"" + place + L"\" no es una direcci\u00F3n como tcp:192.168.1.50:4000"};
}

}  // namespace

std::wstring TcpTransport::address() const {
  const std::optional<TcpAddress> parsed = parseTcpAddress(place_);
  return parsed ? parsed->text() : place_;
}

// Nobody is there to be told of a failure; the socket closes itself.
TcpTransport::~TcpTransport() {
  if (socket_) prepareClosing();
}

std::int32_t TcpTransport::open() {
  const std::optional<TcpAddress> parsed = parseTcpAddress(place_);
  if (!parsed) {
    lastError_ = wrongAddress(port_, place_);
    return lastError_.number;
  }
  PortsInUse::Taken number = environment_.inUse.take(port_);
  if (!number) {
    lastError_ = {kPortInUse, address(), kPortInUseText};
    return lastError_.number;
  }
  const std::int32_t error = openAddress(*parsed);
  if (error == 0) number_ = std::move(number);
  return error;
}

std::int32_t TcpTransport::openAddress(const TcpAddress& address) {
  std::vector<SocketAddress> ways;
  if (!environment_.calls.resolve(address.host, address.port, ways)) return failCall(L"resolve");
  if (ways.empty()) return failWith(kErrorHostNotFound, L"resolve");
  const double end = environment_.clock.monotonicSeconds() + kConnectSeconds;
  std::int32_t error = 0;
  for (std::size_t i = 0; i < ways.size(); ++i) {
    const double left = end - environment_.clock.monotonicSeconds();
    // One that never answers must leave the others their time.
    error = connectWithin(ways[i], std::max(0.0, left / static_cast<double>(ways.size() - i)));
    if (error == 0) break;
  }
  return error;
}

std::int32_t TcpTransport::connectWithin(const SocketAddress& way, double seconds) {
  SocketCalls& calls = environment_.calls;
  OwnedSocket socket(calls, calls.create(way));
  if (!socket) return failCall(L"socket");
  if (!calls.connect(socket.get(), way)) {
    if (calls.lastError() != kErrorWouldBlock) return failCall(L"connect");
    bool isReady = false;
    if (!calls.awaitWriting(socket.get(), seconds, isReady)) return failCall(L"select");
    if (!isReady) return failWith(kErrorTimedOut, L"connect");
    if (!calls.isConnected(socket.get())) return failCall(L"connect");
  }
  socket_ = std::move(socket);
  isHungUp_ = false;
  unansweredSince_.reset();
  return 0;
}

std::int32_t TcpTransport::close() {
  if (!socket_) return 0;
  prepareClosing();
  return socket_.close() ? 0 : failCall(L"closesocket");
}

// Where dropping fails the connection is as good as gone, and the closing has its own error.
void TcpTransport::prepareClosing() {
  number_.reset();
  if (!unansweredSince_) return;
  const double waited = environment_.clock.monotonicSeconds() - *unansweredSince_;
  if (waited >= kAnswerSeconds) environment_.calls.dropUnsent(socket_.get());
}

std::int32_t TcpTransport::read(std::string& bytes) {
  std::array<char, kReadBufferSize> buffer;
  std::uint32_t count = 0;
  if (!environment_.calls.receive(socket_.get(), buffer.data(), kReadBufferSize, count)) {
    if (environment_.calls.lastError() == kErrorWouldBlock) return 0;
    failCall(L"recv");
    return -1;
  }
  if (count == 0) {
    isHungUp_ = true;
    failWith(kErrorDisconnected, L"recv");
    return -1;
  }
  unansweredSince_.reset();
  const std::string_view read(buffer.data(), count);
  environment_.dump.write("Read ", read, address());
  bytes += read;
  return static_cast<std::int32_t>(count);
}

std::string TcpTransport::discard() {
  std::string bytes;
  for (int i = 0; i < kMostDiscards; ++i) {
    if (read(bytes) <= 0) break;
  }
  return bytes;
}

std::int32_t TcpTransport::write(std::string_view bytes) {
  // The system would still take bytes for a peer that reads no more.
  if (isHungUp_) return -1;
  const double end = environment_.clock.monotonicSeconds() + kWriteSeconds;
  std::size_t taken = 0;
  while (taken < bytes.size()) {
    std::uint32_t count = 0;
    if (environment_.calls.send(socket_.get(), bytes.substr(taken), count)) {
      taken += count;
    } else if (environment_.calls.lastError() != kErrorWouldBlock) {
      failCall(L"send");
      return -1;
    } else if (!awaitTaking(end)) {
      break;
    }
  }
  if (taken != 0) {
    if (!unansweredSince_) unansweredSince_ = environment_.clock.monotonicSeconds();
    environment_.dump.write("Send ", bytes.substr(0, taken), address());
  }
  return static_cast<std::int32_t>(taken);
}

bool TcpTransport::awaitTaking(double end) {
  const double left = end - environment_.clock.monotonicSeconds();
  bool isReady = false;
  return left > 0 && environment_.calls.awaitWriting(socket_.get(), left, isReady) && isReady;
}

// The system may fail without a number, and 0 would pass for success.
std::int32_t TcpTransport::failCall(const wchar_t* call) {
  const std::uint32_t error = environment_.calls.lastError();
  return failWith(error != 0 ? error : kErrorGenFailure, call);
}

std::int32_t TcpTransport::failWith(std::uint32_t error, const wchar_t* call) {
  lastError_ = {static_cast<std::int32_t>(error), address() + L" (" + call + L")",
                environment_.calls.errorMessage(error)};
  return lastError_.number;
}

}  // namespace corvid
