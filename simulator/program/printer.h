// The simulated fiscal printer: bytes from the host in, answers out. It does no input or output
// of its own, knows no time but its clock's, and never waits.
#pragma once

#include "simulator/commands/commands.h"
#include "simulator/device/machine.h"
#include "simulator/line/line_protocol.h"
#include "simulator/line/misbehaviour.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvid::simulator {

class Printer {
 public:
  enum class Direction { FromHost, ToHost };
  using WireListener = std::function<void(Direction, std::string_view)>;

  Printer(Configuration configuration, Clock clock)
      : machine_(std::move(configuration), std::move(clock)) {}

  // Takes the next bytes of the line, in pieces of any size, and returns what to send, in order.
  // A status request is answered by the status block; a command by ACK, NAK, or its first block of
  // data; ACK by the block of data that follows, NAK by the last one again.
  [[nodiscard]] std::vector<Chunk> receive(std::string_view bytes);

  // Each message received and each answer sent, whole and as it stands on the line.
  void onWire(WireListener listener) { onWire_ = std::move(listener); }

  // Called with the number of each command, 1 for the first, that stands on the line whole and
  // undamaged: when it arrives, before anything is done about it, and when it was carried out or
  // refused, before its answer leaves. What it does to the printer counts for that command.
  enum class Stage { Arrived, CarriedOut };
  void onCommand(std::function<void(Stage, int)> listener) { onCommand_ = std::move(listener); }

  // Called after each command that was carried out, before its answer is sent; what it throws comes
  // out of receive().
  void onDone(std::function<void(const Machine&)> listener) { onDone_ = std::move(listener); }

  // The power goes and comes back: see Machine::cutPower. A command under way gets no answer.
  void cutPower(OpenDocument fate);
  // What happened since the last call: whether what was on its way to the host is lost, and whether
  // the host's connection ends.
  [[nodiscard]] bool takeLoss() { return std::exchange(isLost_, false); }
  [[nodiscard]] bool takeHangUp() { return std::exchange(isHangingUp_, false); }

  [[nodiscard]] Misbehaviour& misbehaviour() { return misbehaviour_; }
  [[nodiscard]] Machine& machine() { return machine_; }
  [[nodiscard]] const Machine& machine() const { return machine_; }

 private:
  [[nodiscard]] bool hears(const Received& received);
  [[nodiscard]] std::string answerTo(const Received& received);
  [[nodiscard]] std::string answerToCommand(std::string_view text);
  [[nodiscard]] Reply replyTo(std::string_view command);
  [[nodiscard]] std::string answerOf(const Reply& reply);
  [[nodiscard]] std::string nextBlock();
  void report(Direction direction, std::string_view bytes) const;
  void send(std::string answer, std::vector<Chunk>& chunks);

  Machine machine_;
  Misbehaviour misbehaviour_;
  LineReceiver line_;
  std::deque<std::string> blocks_;  // of data, waiting for the host's ACK
  std::string lastBlock_;           // sent last, while the reply it belongs to is current
  WireListener onWire_;
  std::function<void(const Machine&)> onDone_;
  std::function<void(Stage, int)> onCommand_;
  int commands_ = 0;       // so far
  bool isPowered_ = true;  // since the message under way began
  bool isLost_ = false;
  bool isHangingUp_ = false;
};

}  // namespace corvid::simulator
