#include "simulator/program/printer.h"

#include "simulator/commands/status_replies.h"
#include "simulator/line/bytes.h"

namespace corvid::simulator {

std::vector<Chunk> Printer::receive(std::string_view bytes) {
  std::vector<Chunk> chunks;
  for (const char byte : bytes) {
    const auto received = line_.take(byte);
    if (!received) {
      continue;
    }
    report(Direction::FromHost, received->bytes);
    const std::size_t before = chunks.size();
    std::string answer = hears(*received) ? answerTo(*received) : "";
    if (!isPowered_) {
      chunks.clear();
      continue;
    }
    send(std::move(answer), chunks);
    if (isHangingUp_) {
      break;
    }
    // However it got here: on a paced line the message has only now arrived.
    if (chunks.size() > before) {
      chunks.at(before).gap += misbehaviour_.timeOnLine(received->bytes.size());
    }
  }
  return chunks;
}

bool Printer::hears(const Received& received) {
  isPowered_ = true;
  if (received.kind == Received::Kind::Command) {
    ++commands_;
    if (onCommand_) {
      onCommand_(Stage::Arrived, commands_);
    }
  }
  return isPowered_ && received.kind != Received::Kind::Noise &&
         !misbehaviour_.happens(Fault::Silent);
}

void Printer::cutPower(OpenDocument fate) {
  machine_.cutPower(fate);
  line_ = {};
  blocks_.clear();
  lastBlock_.clear();
  isPowered_ = false;
  isLost_ = true;
}

std::string Printer::answerTo(const Received& received) {
  switch (received.kind) {
    case Received::Kind::Acknowledge:
      return nextBlock();
    case Received::Kind::Refuse:
      return lastBlock_;
    case Received::Kind::Command: {
      std::string answer = answerToCommand(received.text);
      if (onCommand_) {
        onCommand_(Stage::CarriedOut, commands_);
      }
      return answer;
    }
    case Received::Kind::Garbled:
      return answerOf(refused());
    case Received::Kind::Enquiry:
      return answerOf(data({statusBytes(machine_)}));
    case Received::Kind::EndOfTransmission:
    case Received::Kind::Noise:
    default:
      blocks_.clear();
      lastBlock_.clear();
      return "";
  }
}

std::string Printer::answerToCommand(std::string_view text) {
  if (misbehaviour_.happens(Fault::Refuse)) {
    return answerOf(refused());
  }
  if (const auto told = misbehaviour_.answerTo(text)) {
    return answerOf(data(*told));
  }
  return answerOf(replyTo(text));
}

Reply Printer::replyTo(std::string_view command) {
  Reply reply = execute(machine_, command);
  if (reply.kind == Reply::Kind::Done && onDone_) {
    onDone_(machine_);
  }
  return reply;
}

std::string Printer::answerOf(const Reply& reply) {
  blocks_.assign(reply.blocks.begin(), reply.blocks.end());
  lastBlock_.clear();
  if (reply.kind == Reply::Kind::Data) {
    return nextBlock();
  }
  return {reply.kind == Reply::Kind::Done ? kAck : kNak};
}

std::string Printer::nextBlock() {
  lastBlock_.clear();
  if (!blocks_.empty()) {
    lastBlock_ = framed(blocks_.front(), blocks_.size() > 1 ? kEtb : kEtx);
    blocks_.pop_front();
  }
  return lastBlock_;
}

void Printer::report(Direction direction, std::string_view bytes) const {
  if (onWire_) {
    onWire_(direction, bytes);
  }
}

void Printer::send(std::string answer, std::vector<Chunk>& chunks) {
  if (answer.empty()) {
    return;
  }
  if (misbehaviour_.happens(Fault::HangUp)) {
    isHangingUp_ = true;
    return;
  }
  std::string sent;
  for (Chunk& chunk : misbehaviour_.shaped(std::move(answer))) {
    sent += chunk.bytes;
    chunks.push_back(std::move(chunk));
  }
  if (!sent.empty()) {
    report(Direction::ToHost, sent);
  }
}

}  // namespace corvid::simulator
