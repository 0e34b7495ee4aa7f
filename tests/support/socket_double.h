// Hosts of a network in memory: what is sent reaches a peer, what the peer sends is received.
#pragma once

#include "support/line_double.h"
#include "transport/socket_calls.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

// What becomes of a connecting.
enum class ConnectAnswer { Accept, Refuse, Silence };

struct Connection : Incoming {
  ConnectAnswer answer = ConnectAnswer::Silence;
  bool isHungUp = false;
  bool dropsUnsent = false;
};

// Fulfils the socket calls. Connecting is under way until it is waited for. A handle that is closed
// fails with 10038; one that fails to close is gone all the same.
class SocketDouble : public LineDouble<SocketCalls, SocketHandle, Connection> {
 public:
  using LineDouble::LineDouble;
  // As a call's error: the call succeeds, but the peer has hung up.
  static constexpr std::uint32_t kHangUp = 0xFFFFFFFF;

  void connect(LinePeer* peer) { peer_ = peer; }
  using LineDouble::deliver;
  void deliver(std::string_view bytes, double delaySeconds) override;

  using Answer = ConnectAnswer;
  std::map<std::string, Answer> answers;              // by way; one that is not there: Accept
  std::vector<std::string> ways = {"10.0.0.1:4000"};  // what resolve finds
  std::size_t room = SIZE_MAX;                        // bytes that the system takes before it waits

  [[nodiscard]] const std::vector<std::string>& asked() const { return asked_; }
  [[nodiscard]] std::size_t openSockets() const { return open_.size(); }
  // How many of the closed ones dropped what was unsent.
  [[nodiscard]] int dropped() const { return dropped_; }

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

 private:
  bool use(const std::string& call, SocketHandle handle);

  int dropped_ = 0;
  std::vector<std::string> asked_;  // hosts and ports
};

}  // namespace corvid
