// When the bytes that came so far are all that will come.
#pragma once

#include <string_view>

namespace corvid {

// True for an answer of one control byte (ACK, NAK or ENQ in front), and for a block that STX began
// once its end byte (ETX, ETB or EOT) and the check byte behind that are there, whatever value the
// check byte has. Bytes in front of STX do not matter.
[[nodiscard]] bool isWholeAnswer(std::string_view bytes);

}  // namespace corvid
