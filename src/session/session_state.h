// The state of one session beside its exchange: what a host sees, and the settings read at
// creation.
#pragma once

#include "exchange/exchange.h"
#include "records/rates_record.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace corvid {

constexpr std::int16_t kMostRates = 7;

enum VariantesPF : std::int32_t { SRP350 = 0, DT230 = 1, HKA112 = 2, SRP812 = 3 };

struct SessionState {
  std::wstring SerialPrinter;       // the printer's registration number; Abrir fills an empty one
  std::shared_ptr<RatesRecord> s3;  // rates and flags, read when first needed; may be empty
  std::int16_t f21 = 0;             // printer flag 21, from s3

  std::int16_t retries = 3;               // read and kept; nothing uses it
  std::int32_t columnasDescripcion = 28;  // width of an item's description
  std::array<double, kMostRates + 1> tasas{};
  std::int16_t numTasas = 0;  // how many of tasas were read
};

// Reads the settings of a new session, in their fixed order; one that does not fit its field
// leaves the field as it is. Never throws.
void readSettings(SessionState& state, Exchange& exchange);

}  // namespace corvid
