// Outcome classes and printer variants.
#pragma once

#include "protocol/control_bytes.h"

#include <cstdint>

namespace corvid {

// Outcome classes of an exchange.
enum pfErrors : std::int32_t { pfOk = 0, pfCommError = 1, pfPrinterError = 2, pfClientError = 3 };

enum VariantesPF : std::int32_t { SRP350 = 0, DT230 = 1, HKA112 = 2, SRP812 = 3 };

}  // namespace corvid
