// Lines of steering in a file, each with its time.
#pragma once

#include "simulator/program/printer.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

// One line each, blanks around it left out:
//
//   LINE            a line of steering, obeyed before the line to the host opens
//   at N LINE       obeyed when the host's Nth command arrives, before anything is done about it
//   after N LINE    obeyed when the Nth command was carried out or refused, before its answer
//   leaves # TEXT          nothing, as an empty line
//
// Commands are counted from 1 as they stand on the line, whole and undamaged, queries and
// repetitions too; status requests do not count. "quit" has no place here.
class Script {
 public:
  Script() = default;
  // std::runtime_error, with the line's number, for a line that is none of these.
  explicit Script(std::string_view text);

  [[nodiscard]] const std::vector<std::string>& first() const { return first_; }
  // In the file's order.
  [[nodiscard]] std::vector<std::string> due(Printer::Stage stage, int command) const;

 private:
  struct Timed {
    Printer::Stage stage;
    int command;
    std::string line;
  };

  void add(std::string_view line);

  std::vector<std::string> first_;
  std::vector<Timed> timed_;
};

}  // namespace corvid::simulator
