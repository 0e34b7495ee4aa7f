// What became of the last command.
#pragma once

#include "platform/clock.h"

#include <cstdint>

namespace corvid {

// The values are published.
enum EnviosPF : std::int32_t {
  envNinguno = 0,         // no command yet
  envAceptado = 1,        // accepted, and no block before it is in doubt
  envRechazado = 2,       // every block was answered by NAK
  envNoEnviado = 3,       // no block was put on the line
  envIncierto = 4,        // a block went unanswered, and none was accepted
  envAceptadoDudoso = 5,  // accepted, after a block that went unanswered: it may stand twice
};

// Counts the blocks of one command and their answers.
class SendRecord {
 public:
  // From a command's first step to its last; the time is that of the steady clock.
  class Command {
   public:
    Command(SendRecord& record, Clock& clock) : record_(record), clock_(clock) {
      record_ = {};
      record_.isBegun_ = true;
      start_ = clock_.monotonicSeconds();
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    ~Command() { record_.seconds_ = clock_.monotonicSeconds() - start_; }

   private:
    SendRecord& record_;
    Clock& clock_;
    double start_ = 0;
  };

  // A command that was refused before it began.
  void noteUnsent() {
    *this = {};
    isBegun_ = true;
  }
  // The command went to the preview of test mode, which refuses nothing.
  void notePreviewed() {
    noteUnsent();
    isAccepted_ = true;
  }
  void noteBlock() { ++blocks_; }
  void noteAnswer(bool isAccepted) {
    ++answers_;
    isAccepted_ = isAccepted_ || isAccepted;
  }

  [[nodiscard]] EnviosPF outcome() const {
    if (!isBegun_) return envNinguno;
    const bool isInDoubt = answers_ < blocks_;
    if (isAccepted_) return isInDoubt ? envAceptadoDudoso : envAceptado;
    if (blocks_ == 0) return envNoEnviado;
    return isInDoubt ? envIncierto : envRechazado;
  }
  [[nodiscard]] std::int32_t blocks() const { return blocks_; }
  // Of a command that is over; 0 before.
  [[nodiscard]] std::int32_t milliseconds() const;

 private:
  bool isBegun_ = false;
  bool isAccepted_ = false;
  std::int32_t blocks_ = 0;
  std::int32_t answers_ = 0;
  double seconds_ = 0;
};

}  // namespace corvid
