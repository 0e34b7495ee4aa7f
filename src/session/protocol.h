// Control bytes, outcome classes and printer variants, with their published names and values.
#pragma once

#include <cstdint>

namespace corvid {

// Control bytes of the wire protocol. A plain enum, because the reply flag that a host sees and
// sets is any 32-bit number.
enum controlValues : std::int32_t {
  STX = 2,
  ETX = 3,
  EOT = 4,
  ENQ = 5,
  ACK = 6,
  NAK = 21,
  ETB = 23,
  RS = 30,
  US = 31,
};

// Outcome classes of an exchange.
enum pfErrors : std::int32_t { pfOk = 0, pfCommError = 1, pfPrinterError = 2, pfClientError = 3 };

enum VariantesPF : std::int32_t { SRP350 = 0, DT230 = 1, HKA112 = 2, SRP812 = 3 };

inline constexpr wchar_t kLineFeed = L'\n';  // separates the fields of a reply

}  // namespace corvid
