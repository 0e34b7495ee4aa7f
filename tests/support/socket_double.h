// Hosts of a network in memory: what is sent reaches a peer, what the peer sends is received.
#pragma once

#include "support/call_faults.h"
#include "support/fake_clock.h"
#include "support/line_peer.h"
#include "transport/socket_calls.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

// Fulfils the socket calls. Connecting is under way until it is waited for. A handle that is closed
// fails with 10038; one that fails to close is gone all the same.
class SocketDouble : public SocketCalls, public NearEnd {
 public:
  // As a call's error: the call succeeds, but the peer has hung up.
  static constexpr std::uint32_t kHangUp = 0xFFFFFFFF;

  SocketDouble(FakeClock& clock, CallFaults& faults) : clock_(clock), faults_(faults) {}

  void connect(LinePeer* peer) { peer_ = peer; }
  using NearEnd::deliver;
  void deliver(std::string_view bytes, double delaySeconds) override;

  // What becomes of a connecting, by way; a way that is not there counts as Accept.
  enum class Answer { Accept, Refuse, Silence };
  std::map<std::string, Answer> answers;
  std::vector<std::string> ways = {"10.0.0.1:4000"};  // what resolve finds
  std::size_t room = SIZE_MAX;                        // bytes that the system takes before it waits

  [[nodiscard]] const std::vector<std::string>& asked() const { return asked_; }
  [[nodiscard]] std::size_t openSockets() const { return open_.size(); }
  [[nodiscard]] std::size_t unread() const override;
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
  std::uint32_t lastError() override { return lastError_; }
  std::wstring errorMessage(std::uint32_t number) override;

 private:
  struct Arriving {
    char byte;
    double due;
  };
  struct Connection {
    Answer answer = Answer::Silence;
    bool isHungUp = false;
    bool dropsUnsent = false;
    std::deque<Arriving> incoming;
    double free = 0;  // when the last byte on its way has come
  };

  bool use(const std::string& call, SocketHandle handle);
  bool failWith(std::uint32_t error);
  // Nothing that comes later than this was sent before the peer hung up.
  static void hangUp(Connection& connection) { connection.isHungUp = true; }

  FakeClock& clock_;
  CallFaults& faults_;
  LinePeer* peer_ = nullptr;
  std::map<SocketHandle, Connection> open_;
  SocketHandle nextHandle_ = 200;
  SocketHandle current_ = kInvalidSocket;  // where the next bytes are sent
  std::uint32_t lastError_ = 0;
  int dropped_ = 0;
  std::vector<std::string> asked_;  // hosts and ports
};

}  // namespace corvid
