// Tells the dump of one line from one in which several sessions wrote.
#pragma once

#include "simulator/program/dump.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace corvid::simulator {

// The line of the record that shows a second port; nothing where none does. Records may name
// addresses; those of serial ports do not, and then only exchanges that overlap give them away: two
// requests in the same second, which one host would not send before an answer or a time-out of at
// least a second, and an answer to each of them. Two sessions that take turns look like one.
[[nodiscard]] std::optional<std::size_t> lineOfSecondPort(const std::vector<DumpRecord>& records);

}  // namespace corvid::simulator
