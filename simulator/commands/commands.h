// The commands of the printer: which prefix leads to what.
#pragma once

#include "simulator/device/machine.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

struct Reply {
  enum class Kind { Done, Refused, Data };
  Kind kind = Kind::Done;
  std::vector<std::string> blocks;  // of Data, at least one
};

[[nodiscard]] inline Reply done() { return {Reply::Kind::Done, {}}; }
[[nodiscard]] inline Reply refused() { return {Reply::Kind::Refused, {}}; }
[[nodiscard]] inline Reply data(std::vector<std::string> blocks) {
  return {Reply::Kind::Data, std::move(blocks)};
}

struct Command {
  std::string_view prefix;
  // `arguments` is what stands after the prefix; `parameter` tells the commands of a family apart.
  Reply (*run)(Machine& machine, std::string_view arguments, int parameter);
  int parameter = 0;
  bool needsPaper = true;
};

// Carries out a command, found by its longest prefix. A refused one leaves everything as it was
// and prints nothing: what is unknown, malformed, makes no sense now, or needs paper when there is
// none.
[[nodiscard]] Reply execute(Machine& machine, std::string_view text);

}  // namespace corvid::simulator
