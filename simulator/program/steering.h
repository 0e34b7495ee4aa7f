// The line commands by which a person or a test harness steers a running printer.
#pragma once

#include "simulator/program/printer.h"

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace corvid::simulator {

// Each line gets one answer line: "ok", or "error: " and a reason; what a command shows comes
// before it. Every answer is flushed at once.
// steeringHelp() tells the commands; TIMES is on, off or a number (see Fault and Misbehaviour), and
// in escaped texts \n is a line feed, \xHH any byte (a blank in COMMAND is \x20), \\ a backslash.
class Steering {
 public:
  Steering(Printer& printer, std::ostream& out) : printer_(printer), out_(out) {}

  // False after "quit".
  bool obey(std::string_view line);

 private:
  Printer& printer_;
  std::ostream& out_;
};

// Every line command and what it does.
[[nodiscard]] std::string steeringHelp();

// Takes the next word and the blanks after it; empty at the end.
[[nodiscard]] std::string_view takeWord(std::string_view& rest);
// A whole number without a sign.
[[nodiscard]] std::optional<int> numberOf(std::string_view word);

}  // namespace corvid::simulator
