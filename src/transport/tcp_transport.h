// The byte stream over a TCP connection.
#pragma once

#include "platform/clock.h"
#include "transport/comm_error.h"
#include "transport/owned_socket.h"
#include "transport/port_dump.h"
#include "transport/ports_in_use.h"
#include "transport/tcp_address.h"
#include "transport/transport.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvid {

// What a connection needs of the world around it; all outlive it.
struct TcpEnvironment {
  SocketCalls& calls;
  Clock& clock;
  PortDump& dump;
  PortsInUse& inUse;
};

// A printer with a network port, or behind a box that hands a serial line on as it is: plain bytes,
// neither encrypted nor checked, for the local network. Takes the place of the serial port of its
// number, whose settings and lines are the box's matter.
class TcpTransport : public Transport {
 public:
  // `place` is the setting's text: "tcp:host:4000".
  TcpTransport(const TcpEnvironment& environment, std::int16_t port, std::wstring place)
      : environment_(environment), port_(port), place_(std::move(place)) {}
  TcpTransport(const TcpTransport&) = delete;
  TcpTransport& operator=(const TcpTransport&) = delete;
  ~TcpTransport() override;

  // Connects within 5 s in all, not counting the time in which the system looks up a name.
  // kWrongAddress for a place that is no address, kPortInUse where the number is taken, or the
  // system's number. A failure leaves nothing open.
  std::int32_t open() override;
  // A block that got no byte in answer for a second does not outlive this: the system would still
  // deliver it when the network is back, and print a line that the host was told is uncertain.
  std::int32_t close() override;
  [[nodiscard]] bool isOpen() const override { return static_cast<bool>(socket_); }
  void setLines() override {}
  // A peer that has hung up fails this and every later call, once its bytes are read.
  std::int32_t read(std::string& bytes) override;
  std::string discard() override;
  // Waits up to a second for a system that takes no more bytes; the count may be less than asked.
  std::int32_t write(std::string_view bytes) override;
  [[nodiscard]] std::wstring errorText() const override { return lastError_.text(); }
  // In one form, however the setting writes it; a place that is no address as it stands.
  [[nodiscard]] std::wstring address() const override;

 private:
  std::int32_t openAddress(const TcpAddress& address);
  std::int32_t connectWithin(const SocketAddress& way, double seconds);
  bool awaitTaking(double end);
  void prepareClosing();
  std::int32_t failCall(const wchar_t* call);
  std::int32_t failWith(std::uint32_t error, const wchar_t* call);

  TcpEnvironment environment_;
  std::int16_t port_;
  std::wstring place_;
  PortsInUse::Taken number_;
  OwnedSocket socket_;
  bool isHungUp_ = false;
  std::optional<double> unansweredSince_;  // when the first byte was sent that nothing came after
  CommError lastError_;
};

}  // namespace corvid
