// A line on which messages and answers are lost, cut, damaged or late, to a simulated printer that
// misbehaves.
#pragma once

#include "simulated_line.h"
#include "simulator/line/bytes.h"
#include "support/seeds.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

// No fault makes an ACK, an ENQ or a valid check byte of other bytes.
class FaultyLine : public LinePeer {
 public:
  FaultyLine(SimulatedLine& line, double timeOut) : line_(line), timeOut_(timeOut) {
    line_.printer().onDone([this](const simulator::Machine&) { ++done_; });
  }

  // Puts a few faults into the messages to come. Silence that lasts is for the host to end.
  void drawFaults(Draw& draw) {
    for (int left = draw.between(1, 3); left > 0; --left) {
      faults_.push_back({.place = draw.below(kPlaces),
                         .first = message_ + draw.below(30),
                         .count = draw.oneIn(3) ? draw.between(2, 9) : 1,
                         .position = draw.below(8),
                         .delay = timeOut_ * draw.oneOf({0.02, 0.5, 0.9, 1.1, 2.5}),
                         .bit = draw.below(8)});
    }
    line_.misbehaviour().setGap(std::chrono::milliseconds(draw.below(120)));
    line_.misbehaviour().setPosition(static_cast<std::size_t>(draw.below(8)));
    if (draw.oneIn(50)) silentFrom_ = message_ + draw.below(30);
  }
  void repair() {
    faults_.clear();
    silentFrom_.reset();
    line_.misbehaviour().reset();
  }

  // Commands that were carried out while the host did not get their ACK whole and in time.
  [[nodiscard]] int unheard() const { return done_ - heard_; }

  void received(std::string_view bytes, NearEnd& line) override {
    ++message_;
    const Fault* const fault = current();
    std::string sent(bytes);
    if (fault != nullptr) damageMessage(*fault, sent);
    if (silentFrom_ && message_ >= *silentFrom_) return;
    std::vector<simulator::Chunk> answer = line_.printer().receive(sent);
    double late = 0;
    if (fault != nullptr) late = damageAnswer(*fault, answer);
    deliver(answer, late, line);
  }

 private:
  // Of the message, of the answer, and those of the printer.
  enum Place {
    LostMessage,
    CutMessage,
    DamagedMessage,
    LostAnswer,
    CutAnswer,
    DamagedAnswer,
    Late
  };
  static constexpr int kPlaces = Late + 1 + static_cast<int>(simulator::kFaults);

  struct Fault {
    int place;
    int first;  // message
    int count;
    int position;
    double delay;
    int bit;
  };

  const Fault* current() {
    const Fault* now = nullptr;
    for (const Fault& fault : faults_) {
      if (fault.place > Late && fault.first == message_) {
        line_.misbehaviour().set(static_cast<simulator::Fault>(fault.place - Late - 1),
                                 fault.count);
      } else if (fault.place <= Late && fault.first <= message_ &&
                 message_ < fault.first + fault.count) {
        now = &fault;
      }
    }
    return now;
  }

  static void cutEnd(std::string& bytes, int position) {
    bytes.resize(bytes.size() - std::min(bytes.size(), static_cast<std::size_t>(position) + 1));
  }
  // Turns one bit over, so that no control byte comes of it.
  static void damage(std::string& bytes, std::size_t position, int bit) {
    char& byte = bytes.at(std::min(position, bytes.size() - 1));
    const auto turned = static_cast<unsigned char>(byte ^ (1 << bit));
    byte = static_cast<char>(turned < 0x20 ? static_cast<unsigned char>(byte) | 0x80U : turned);
  }

  static void damageMessage(const Fault& fault, std::string& bytes) {
    if (fault.place == LostMessage) bytes.clear();
    if (fault.place == CutMessage) cutEnd(bytes, fault.position);
    // Without its STX a block's last byte could be an ENQ.
    const bool isBlock = bytes.size() > 1;
    if (fault.place == DamagedMessage) {
      damage(bytes, static_cast<std::size_t>(fault.position) + (isBlock ? 1 : 0), fault.bit);
    }
  }

  // Returns the seconds by which the answer is late.
  static double damageAnswer(const Fault& fault, std::vector<simulator::Chunk>& answer) {
    if (answer.empty()) return 0;
    std::string& last = answer.back().bytes;
    if (fault.place == LostAnswer) answer.clear();
    if (fault.place == CutAnswer) cutEnd(last, fault.position);
    if (fault.place == DamagedAnswer) {
      damage(last, static_cast<std::size_t>(fault.position), fault.bit);
    }
    return fault.place == Late ? fault.delay : 0;
  }

  void deliver(const std::vector<simulator::Chunk>& answer, double late, NearEnd& line) {
    const bool isInTime = late < timeOut_ && line.unread() == 0;
    for (const simulator::Chunk& chunk : answer) {
      late += std::chrono::duration<double>(chunk.gap).count();
      const bool isAck = chunk.bytes.ends_with(simulator::kAck) &&
                         chunk.bytes.find(simulator::kStx) == std::string::npos;
      if (isAck && isInTime) ++heard_;
      line.deliver(chunk.bytes, late);
    }
  }

  SimulatedLine& line_;
  double timeOut_;
  std::vector<Fault> faults_;
  std::optional<int> silentFrom_;
  int message_ = 0;
  int done_ = 0;
  int heard_ = 0;
};

}  // namespace corvid
