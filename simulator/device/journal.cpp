#include "simulator/device/journal.h"

namespace corvid::simulator {
namespace {

template <typename KeyOf>
std::vector<const Copy*> inRange(const std::vector<Copy>& copies, char kind, int first, int last,
                                 KeyOf keyOf) {
  std::vector<const Copy*> found;
  for (const Copy& copy : copies) {
    if (copy.kind == kind && keyOf(copy) >= first && keyOf(copy) <= last) {
      found.push_back(&copy);
    }
  }
  return found;
}

}  // namespace

std::vector<const Copy*> Journal::numbered(char kind, int first, int last) const {
  return inRange(copies_, kind, first, last, [](const Copy& copy) { return copy.number; });
}

std::vector<const Copy*> Journal::dated(char kind, int first, int last) const {
  return inRange(copies_, kind, first, last,
                 [](const Copy& copy) { return dateNumber(copy.time); });
}

}  // namespace corvid::simulator
