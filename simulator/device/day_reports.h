// Reports of days on the paper.
#pragma once

#include "simulator/device/fiscal_memory.h"
#include "simulator/device/machine.h"

namespace corvid::simulator {

// The running day's sums by document kind and rate, its payments, and the number of the closing
// that it leads to when it ends the day (Z), none when it goes on (X).
void printDayReport(Machine& machine, bool doClose);

// Z reports as the memory keeps them, under one heading.
void printZReports(Machine& machine, const std::vector<ZReport>& zReports);

}  // namespace corvid::simulator
