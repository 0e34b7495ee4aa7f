// The line commands by which a person or a test harness steers a running printer.
#pragma once

#include "simulator/program/printer.h"

#include <optional>
#include <ostream>
#include <string_view>

namespace corvid::simulator {

// Each line gets one answer line: "ok", or "error: " and a reason; what a command shows comes
// before it. Every answer is flushed at once.
//
//   refuse, silent, lose, lose-ack, hang-up, enq-first, end-eot, corrupt-check    TIMES
//   bytewise       TIMES [milliseconds between pieces]
//   split          TIMES [bytes before the cut] [milliseconds between pieces]
//   corrupt-data   TIMES [position in the block, its STX is 0]
//   noise          TIMES [bytes, escaped]
//                  TIMES is on, off or a number; see Fault and Misbehaviour.
//   answer COMMAND [text]    answer a command that begins so by this text; without a text, by what
//                            the printer knows again
//   more COMMAND text        one more block to the answer told
//   baud N         take and send bytes at so many bits a second; 0: at once
//   error N        the second status byte: 64 none, 65 no paper, any other to 127
//   memory-full on|off
//   power-cut annul|resume [TIMES]
//                  the power goes: what the memory does not hold is gone, and an open document ends
//                  or stays open; it comes back after so many messages that nobody hears
//   reset          end all faults, forget answers told
//   paper          show everything printed so far
//   state          show both status bytes, the drawer's openings and the last invoice's number
//   quit
//
// Escaped texts: \n is a line feed, \xHH any byte (a blank in COMMAND is \x20), \\ a backslash.
class Steering {
 public:
  Steering(Printer& printer, std::ostream& out) : printer_(printer), out_(out) {}

  // False after "quit".
  bool obey(std::string_view line);

 private:
  Printer& printer_;
  std::ostream& out_;
};

// Takes the next word and the blanks after it; empty at the end.
[[nodiscard]] std::string_view takeWord(std::string_view& rest);
// A whole number without a sign.
[[nodiscard]] std::optional<int> numberOf(std::string_view word);

}  // namespace corvid::simulator
