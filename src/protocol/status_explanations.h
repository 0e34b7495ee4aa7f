// Words for the printer's two status bytes.
#pragma once

#include <cstdint>
#include <string>

namespace corvid {

// A text and the byte in hexadecimal, such as "Modo fiscal: IDLE (0x60)".
[[nodiscard]] std::wstring explainSTS1(std::int32_t sts1);
[[nodiscard]] std::wstring explainSTS2(std::int32_t sts2);

}  // namespace corvid
