#include "protocol/reply_decoder.h"

#include <string_view>
#include <utility>

namespace corvid {
namespace {

bool isEnd(char byte) { return byte == ETX || byte == ETB || byte == EOT; }

bool isAnswer(char byte) { return byte == ACK || byte == NAK; }

ReplyKind kindOf(char answer) { return answer == ACK ? ReplyKind::Accepted : ReplyKind::Refused; }

char checkByteOf(std::string_view textAndEnd) {
  char check = 0;
  for (const char byte : textAndEnd) check = static_cast<char>(check ^ byte);
  return check;
}

}  // namespace

std::optional<ReplyEvent> ReplyDecoder::take(char byte) {
  const bool isAfterQuiet = std::exchange(isQuiet_, false);
  switch (state_) {
    case State::InBlock:
      return takeInBlock(byte, isAfterQuiet);
    case State::AtCheckByte:
      return takeCheckByte(byte);
    default:
      return takeOutside(byte);
  }
}

std::optional<ReplyEvent> ReplyDecoder::takeOutside(char byte) {
  if (isAnswer(byte)) return answer(kindOf(byte));
  if (byte == ENQ) {
    ReplyEvent event;
    event.kind = ReplyKind::Request;
    return event;
  }
  if (byte == STX) {
    beginBlock();
  } else if (!isEnd(byte)) {
    collected_ += byte;
  } else if (!collected_.empty()) {
    textStart_ = 0;
    endBlock(byte, false);
  }
  return std::nullopt;
}

std::optional<ReplyEvent> ReplyDecoder::takeInBlock(char byte, bool isAfterQuiet) {
  if (isAnswer(byte) && isAfterQuiet) return answer(kindOf(byte));
  if (byte == STX) {
    collected_.resize(textStart_ - 1);
    beginBlock();
  } else if (isEnd(byte)) {
    endBlock(byte, true);
  } else {
    collected_ += byte;
  }
  return std::nullopt;
}

std::optional<ReplyEvent> ReplyDecoder::takeCheckByte(char byte) {
  if (!isFramed_ && byte == STX) {
    ReplyEvent event = block(CheckByte::Missing);
    beginBlock();
    return event;
  }
  const std::string_view textAndEnd = std::string_view(collected_).substr(textStart_);
  return block(checkByteOf(textAndEnd) == byte ? CheckByte::Right : CheckByte::Wrong);
}

std::optional<ReplyEvent> ReplyDecoder::quiet() {
  if (state_ == State::AtCheckByte) return block(CheckByte::Missing);
  if (state_ == State::InBlock) {
    if (endsInAnswer()) return answer(kindOf(collected_.back()));
    isQuiet_ = true;
  }
  return std::nullopt;
}

void ReplyDecoder::beginBlock() {
  collected_ += static_cast<char>(STX);
  textStart_ = collected_.size();
  state_ = State::InBlock;
}

void ReplyDecoder::endBlock(char end, bool isFramed) {
  collected_ += end;
  isFramed_ = isFramed;
  state_ = State::AtCheckByte;
}

ReplyEvent ReplyDecoder::answer(ReplyKind kind) {
  collected_.clear();
  state_ = State::Outside;
  ReplyEvent event;
  event.kind = kind;
  return event;
}

ReplyEvent ReplyDecoder::block(CheckByte check) {
  ReplyEvent event;
  event.kind = ReplyKind::Block;
  event.collected = std::exchange(collected_, {});
  event.text = event.collected.substr(textStart_, event.collected.size() - textStart_ - 1);
  event.end = event.collected.back();
  event.isFramed = isFramed_;
  event.check = check;
  state_ = State::Outside;
  return event;
}

// A block without text ends in its STX, which is no answer.
bool ReplyDecoder::endsInAnswer() const { return isAnswer(collected_.back()); }

}  // namespace corvid
