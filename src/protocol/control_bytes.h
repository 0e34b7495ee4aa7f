// The control bytes of the wire protocol, with their published names and values.
#pragma once

#include <cstdint>

namespace corvid {

// A plain enum, because the reply flag that a host sees and sets is any 32-bit number.
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

}  // namespace corvid
