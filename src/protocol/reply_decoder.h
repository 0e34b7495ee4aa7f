// The one decoder of what a printer sends.
#pragma once

#include "protocol/control_bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace corvid {

enum class ReplyKind {
  Accepted,  // ACK
  Refused,   // NAK
  Request,   // ENQ: the printer waits for an ACK before it goes on
  Block,
};

enum class CheckByte { Right, Wrong, Missing };

struct ReplyEvent {
  ReplyKind kind = ReplyKind::Accepted;

  // Of a block:
  std::string text;                      // between STX and the end byte
  char end = 0;                          // ETX, ETB or EOT
  bool isFramed = false;                 // STX began it; false for text that merely ends
  CheckByte check = CheckByte::Missing;  // the XOR of the text and the end byte, as sent
  std::string collected;                 // noise before the block, and the block up to its end byte

  // Whether the block is a status: framed, and exactly the two status bytes.
  [[nodiscard]] bool isStatus() const { return isFramed && text.size() == 2; }
  // Byte 0 or 1 of a status, 0 to 255.
  [[nodiscard]] std::uint8_t statusByte(std::size_t index) const {
    return static_cast<std::uint8_t>(text.at(index));
  }
  // Whether the printer holds a further block, to be acknowledged first.
  [[nodiscard]] bool hasMore() const { return end == ETB; }
  // The published flag of a block's end; EOT counts as ETX.
  [[nodiscard]] controlValues endFlag() const { return hasMore() ? ETB : ETX; }
};

// Turns bytes into events, one at a time. The events depend on the bytes and their order alone,
// never on how reads cut them, but for quiet, which its owner tells.
//
// Outside a block ACK, NAK and ENQ count wherever they stand; STX begins a block; other bytes are
// noise, unless ETX, ETB or EOT ends them: then they are a block without frame. An end byte after
// no noise is the late check byte of a block that was told already, and is passed over.
//
// Inside a block STX begins it anew, and ETX, ETB and EOT end it; every other byte is text. The
// byte after the end is the check byte, whatever its value; only STX never is the check byte of a
// block without frame, but begins the next one.
//
// Quiet concludes a block whose check byte does not come. Half a block stays open, since its rest
// may follow; but an ACK or NAK with quiet before or after it is an answer and no text, and the
// half is dropped.
class ReplyDecoder {
 public:
  // What the byte completes.
  [[nodiscard]] std::optional<ReplyEvent> take(char byte);
  // What is complete now that no byte follows.
  [[nodiscard]] std::optional<ReplyEvent> quiet();

  // Whether only the check byte of a block is missing, or quiet.
  [[nodiscard]] bool awaitsCheckByte() const { return state_ == State::AtCheckByte; }
  // The bytes since the last event, but for the ENQs among them.
  [[nodiscard]] const std::string& collected() const noexcept { return collected_; }

 private:
  enum class State { Outside, InBlock, AtCheckByte };

  [[nodiscard]] std::optional<ReplyEvent> takeOutside(char byte);
  [[nodiscard]] std::optional<ReplyEvent> takeInBlock(char byte, bool isAfterQuiet);
  [[nodiscard]] std::optional<ReplyEvent> takeCheckByte(char byte);
  void beginBlock();
  void endBlock(char end, bool isFramed);
  [[nodiscard]] ReplyEvent answer(ReplyKind kind);
  [[nodiscard]] ReplyEvent block(CheckByte check);
  [[nodiscard]] bool endsInAnswer() const;

  State state_ = State::Outside;
  bool isQuiet_ = false;  // half a block, and no byte since
  bool isFramed_ = false;
  std::size_t textStart_ = 0;  // of the block's text in collected_
  std::string collected_;
};

}  // namespace corvid
