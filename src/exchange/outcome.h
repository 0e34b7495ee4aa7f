// What an exchange leaves behind for the host.
#pragma once

#include "protocol/control_bytes.h"

#include <cstdint>
#include <string>

namespace corvid {

// Outcome classes of an exchange.
enum pfErrors : std::int32_t { pfOk = 0, pfCommError = 1, pfPrinterError = 2, pfClientError = 3 };

// Public state with its published names: the host reads and writes it freely. Every exchange sets
// it anew.
struct Outcome {
  std::wstring result;          // raw text of the reply collected by the last wait
  std::int32_t resultFlag = 0;  // controlValues: what ended the last reply
  std::int32_t pfError = pfOk;  // pfErrors: outcome class of the last exchange
  std::int32_t STS1 = 0;        // status bytes of the last status reply, 0 when none
  std::int32_t STS2 = 0;
  std::wstring DescripcionError;  // words for the outcome

  bool operator==(const Outcome&) const = default;
};

}  // namespace corvid
