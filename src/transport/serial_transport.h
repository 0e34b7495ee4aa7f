// The byte stream over a serial port.
#pragma once

#include "platform/clock.h"
#include "transport/modcomm.h"
#include "transport/transport.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// COM<port> at 9600 baud, even parity, 8 data bits, 1 stop bit; RTS cleared and DTR set.
class SerialTransport : public Transport {
 public:
  // `readsExactly` is the setting "LecturaInmediata".
  SerialTransport(modCOMM& comm, Clock& clock, std::int16_t port, bool readsExactly)
      : comm_(comm), clock_(clock), port_(port), readsExactly_(readsExactly) {}
  SerialTransport(const SerialTransport&) = delete;
  SerialTransport& operator=(const SerialTransport&) = delete;
  ~SerialTransport() override;

  std::int32_t open() override;
  std::int32_t close() override;
  [[nodiscard]] bool isOpen() const override { return ownsRecord_ && comm_.isOpen(port_); }
  void setLines() override;
  std::int32_t read(std::string& bytes) override;
  std::string discard() override { return comm_.CommDiscard(port_); }
  std::int32_t write(std::string_view bytes) override { return comm_.CommWrite(port_, bytes); }
  [[nodiscard]] std::wstring errorText() const override;
  [[nodiscard]] ReadManner readManner() const override { return manner_; }

 private:
  modCOMM& comm_;
  Clock& clock_;
  std::int16_t port_;
  bool readsExactly_;
  ReadManner manner_ = ReadManner::Unseen;
  bool ownsRecord_ = false;  // false where the record was open already, for another session
};

}  // namespace corvid
