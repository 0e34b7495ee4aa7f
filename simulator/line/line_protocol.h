// The receiving side of the line: bytes in, what the host meant out.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace corvid::simulator {

struct Received {
  enum class Kind {
    Enquiry,
    Command,
    Garbled,  // a block with the wrong check byte, or too long to be a command
    Acknowledge,
    Refuse,
    EndOfTransmission,
    Noise
  };
  Kind kind = Kind::Noise;
  std::string text;   // of a command: what stands between STX and ETX
  std::string bytes;  // as they came
};

// Finds blocks and control bytes in a stream, whatever pieces it arrives in. STX inside a block
// starts it anew, and ENQ inside one drops it: neither occurs in a command. The byte after ETX is
// the check byte, whatever its value.
class LineReceiver {
 public:
  // What is complete with this byte.
  [[nodiscard]] std::optional<Received> take(char byte);

 private:
  enum class State { Idle, InBlock, AtCheckByte };

  [[nodiscard]] std::optional<Received> takeIdle(char byte);
  [[nodiscard]] std::optional<Received> takeInBlock(char byte);
  [[nodiscard]] Received takeCheckByte(char byte);

  State state_ = State::Idle;
  std::string block_;  // with its STX
  bool isTooLong_ = false;
};

}  // namespace corvid::simulator
