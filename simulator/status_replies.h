// What the printer answers when it is asked about itself.
#pragma once

#include "simulator/machine.h"

#include <string>
#include <vector>

namespace corvid::simulator {

// The two status bytes: mode (64 training, 96 fiscal, 104 memory full) plus 0 idle, 1 in a fiscal
// or 2 in a non-fiscal document; and the error, 64 for none.
[[nodiscard]] std::string statusBytes(const Machine& machine);

// Fields joined by line feeds, none at the end.
[[nodiscard]] std::string joined(const std::vector<std::string>& fields);

// Cashier, day's sales, counters, owner, serial number and clock, in the model's layout.
[[nodiscard]] std::string countersReply(const Machine& machine);

// Rates and flags; four fields when the printer reports no rate of the foreign-currency levy.
[[nodiscard]] std::string ratesReply(const Machine& machine);

// One closure: its number and time, the last documents' numbers, and for sales, debit notes and
// credit notes the exempt amount and three pairs of base and tax.
[[nodiscard]] std::string closureReply(const Closure& closure);

}  // namespace corvid::simulator
