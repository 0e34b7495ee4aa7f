#include "simulator/device/machine.h"

#include "simulator/device/receipt.h"

namespace corvid::simulator {

void Machine::cutPower(OpenDocument fate) {
  isTraining = false;
  if (canPrint()) {
    error = kNoError;
  }
  const bool isResumed = !isIdle() && fate == OpenDocument::Resumed;
  if (isResumed) {
    return;
  }
  if (!isIdle()) {
    printCancelled(paper, configuration);
  }
  document.reset();
  isNonFiscalOpen = false;
  customer = Customer{};
}

void Machine::beginDocument() { documentStart = paper.lines().size(); }

void Machine::keepCopy(char kind, int number) {
  const auto begin = paper.lines().begin() + static_cast<std::ptrdiff_t>(documentStart);
  journal.add({kind, number, now(), {begin, paper.lines().end()}});
}

}  // namespace corvid::simulator
