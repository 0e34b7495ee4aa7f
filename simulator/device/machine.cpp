#include "simulator/device/machine.h"

namespace corvid::simulator {

void Machine::beginDocument() { documentStart = paper.lines().size(); }

void Machine::keepCopy(char kind, int number) {
  const auto begin = paper.lines().begin() + static_cast<std::ptrdiff_t>(documentStart);
  journal.add({kind, number, now(), {begin, paper.lines().end()}});
}

}  // namespace corvid::simulator
