#include "simulator/line/line_protocol.h"

#include "simulator/line/bytes.h"

#include <string_view>

namespace corvid::simulator {
namespace {

// Far above the longest command; keeps a stream without an ETX from filling the memory.
constexpr std::size_t kLongestBlock = 4096;

Received::Kind kindOf(char control) {
  switch (control) {
    case kEnq:
      return Received::Kind::Enquiry;
    case kAck:
      return Received::Kind::Acknowledge;
    case kNak:
      return Received::Kind::Refuse;
    case kEot:
      return Received::Kind::EndOfTransmission;
    default:
      return Received::Kind::Noise;
  }
}

}  // namespace

std::optional<Received> LineReceiver::take(char byte) {
  switch (state_) {
    case State::InBlock:
      return takeInBlock(byte);
    case State::AtCheckByte:
      return takeCheckByte(byte);
    case State::Idle:
    default:
      return takeIdle(byte);
  }
}

std::optional<Received> LineReceiver::takeIdle(char byte) {
  if (byte == kStx) {
    state_ = State::InBlock;
    block_ = byte;
    isTooLong_ = false;
    return std::nullopt;
  }
  return Received{kindOf(byte), "", std::string(1, byte)};
}

std::optional<Received> LineReceiver::takeInBlock(char byte) {
  if (byte == kStx || byte == kEnq) {
    state_ = State::Idle;
    return takeIdle(byte);
  }
  if (block_.size() < kLongestBlock) {
    block_ += byte;
  } else {
    isTooLong_ = true;
  }
  if (byte == kEtx) {
    state_ = State::AtCheckByte;
  }
  return std::nullopt;
}

Received LineReceiver::takeCheckByte(char byte) {
  state_ = State::Idle;
  const std::string_view checked = std::string_view(block_).substr(1);
  const bool isGood = !isTooLong_ && checkByte(checked) == byte;
  return {isGood ? Received::Kind::Command : Received::Kind::Garbled,
          std::string(checked.substr(0, checked.size() - 1)), block_ + byte};
}

}  // namespace corvid::simulator
