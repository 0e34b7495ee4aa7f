#include "support/socket_double.h"

#include <algorithm>
#include <optional>

namespace corvid {
namespace {

constexpr std::uint32_t kNotASocket = 10038;
constexpr std::uint32_t kRefused = 10061;
constexpr std::uint32_t kReset = 10054;

}  // namespace

bool SocketDouble::use(const std::string& call, SocketHandle handle) {
  const std::optional<std::uint32_t> error = faults_.use(call);
  if (error && *error != kHangUp) return failWith(*error);
  const auto open = open_.find(handle);
  if (open == open_.end()) return failWith(kNotASocket);
  if (error) open->second.isHungUp = true;
  return true;
}

void SocketDouble::deliver(std::string_view bytes, double delaySeconds) {
  const auto open = open_.find(current_);
  if (open == open_.end() || open->second.isHungUp) return;  // nobody hears it
  Connection& connection = open->second;
  connection.free = std::max(connection.free, clock_.total() + delaySeconds);
  for (const char byte : bytes) connection.bytes.push_back({byte, connection.free});
}

bool SocketDouble::resolve(const std::wstring& host, std::uint16_t port,
                           std::vector<SocketAddress>& found) {
  if (const auto error = faults_.use("resolve"); error && *error != kHangUp) {
    return failWith(*error);
  }
  asked_.push_back(std::string(host.begin(), host.end()) + ":" + std::to_string(port));
  for (const std::string& way : ways) found.push_back({way});
  return true;
}

SocketHandle SocketDouble::create(const SocketAddress& /*way*/) {
  if (const auto error = faults_.use("create"); error && *error != kHangUp) {
    lastError_ = *error;
    return kInvalidSocket;
  }
  current_ = freeHandle();
  open_[current_];
  return current_;
}

bool SocketDouble::close(SocketHandle handle) {
  const bool succeeds = use("close", handle);
  if (open_[handle].dropsUnsent) ++dropped_;
  open_.erase(handle);
  return succeeds;
}

bool SocketDouble::dropUnsent(SocketHandle handle) {
  if (!use("dropUnsent", handle)) return false;
  open_.at(handle).dropsUnsent = true;
  return true;
}

bool SocketDouble::connect(SocketHandle handle, const SocketAddress& way) {
  if (!use("connect", handle)) return false;
  const auto answer = answers.find(way.bytes);
  open_.at(handle).answer = answer == answers.end() ? Answer::Accept : answer->second;
  return failWith(kErrorWouldBlock);
}

bool SocketDouble::awaitWriting(SocketHandle handle, double seconds, bool& isReady) {
  if (!use("awaitWriting", handle)) return false;
  isReady = open_.at(handle).answer != Answer::Silence && room > 0;
  if (!isReady) clock_.advance(seconds);
  return true;
}

bool SocketDouble::isConnected(SocketHandle handle) {
  if (!use("isConnected", handle)) return false;
  return open_.at(handle).answer == Answer::Accept || failWith(kRefused);
}

bool SocketDouble::receive(SocketHandle handle, char* buffer, std::uint32_t size,
                           std::uint32_t& count) {
  count = 0;
  if (!use("receive", handle)) return false;
  Connection& connection = open_.at(handle);
  count = takeDue(connection, buffer, size);
  return count != 0 || connection.isHungUp || failWith(kErrorWouldBlock);
}

// The first bytes after the hang-up are taken, as the system does; the peer answers with a reset.
bool SocketDouble::send(SocketHandle handle, std::string_view bytes, std::uint32_t& count) {
  count = 0;
  if (!use("send", handle)) return false;
  Connection& connection = open_.at(handle);
  if (connection.answer == Answer::Refuse) return failWith(kReset);
  if (room == 0) return failWith(kErrorWouldBlock);
  count = static_cast<std::uint32_t>(std::min(bytes.size(), room));
  room -= room == SIZE_MAX ? 0 : count;
  current_ = handle;
  if (connection.isHungUp) {
    connection.answer = Answer::Refuse;
  } else if (peer_ != nullptr) {
    peer_->received(bytes.substr(0, count), *this);
  }
  return true;
}

}  // namespace corvid
