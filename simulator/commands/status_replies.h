// What the printer answers when it is asked about itself.
#pragma once

#include "simulator/device/machine.h"

#include <string>

namespace corvid::simulator {

// The two status bytes: mode (64 training, 96 fiscal, 104 memory full) plus 0 idle, 1 in a fiscal
// or 2 in a non-fiscal document; and the error, 64 for none.
[[nodiscard]] std::string statusBytes(const Machine& machine);

// Cashier, day's sales, counters, owner, serial number and clock, in the model's layout.
[[nodiscard]] std::string countersReply(const Machine& machine);

// Rates and flags; four fields when the printer reports no rate of the foreign-currency levy.
[[nodiscard]] std::string ratesReply(const Machine& machine);

// The open document: the bases of all rates and their taxes so far, their total, the items'
// quantity as a plain number ("2.5"), what is left to pay, the number of payments, and what is
// open: 0 nothing, 1 invoice, 2 debit note, 3 credit note, 4 non-fiscal document. Zeros without
// one.
[[nodiscard]] std::string documentReply(const Machine& machine);

// What the running day's invoices and debit notes brought in by each method, with the levy on it;
// refunds are not taken off.
[[nodiscard]] std::string paymentsReply(const Machine& machine);

}  // namespace corvid::simulator
