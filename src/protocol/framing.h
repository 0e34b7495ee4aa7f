// Command framing, and control bytes made readable.
#pragma once

#include "basic/code_page.h"
#include "protocol/control_bytes.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// What a host sends beside commands: the question for the status, and the go-ahead.
inline constexpr wchar_t kEnquiry[] = {ENQ, 0};
inline constexpr wchar_t kAcknowledge[] = {ACK, 0};

// STX, the command as given, ETX, and the check byte: the XOR of every byte after STX up to ETX.
// The check byte is the character of that code in the code page, whatever it is.
[[nodiscard]] std::wstring BuildCommandBlock(std::wstring_view command, const CodePage& codePage);

// The XOR of the bytes of all characters, 0 to 255. Invalid procedure call (5) for an empty text.
[[nodiscard]] std::int16_t CalcXOr(std::wstring_view text, const CodePage& codePage);

// Whether a command holds a byte by which the line tells blocks and answers apart: STX, ETX, EOT,
// ENQ, ACK, NAK, ETB.
[[nodiscard]] bool holdsLineControl(std::string_view bytes);

// A copy in which each character below 33 is a tag: [STX] [ETX] [EOT] [ENQ] [ACK] [NAK] [ETB], or
// the code in three digits, such as [010] and [032].
[[nodiscard]] std::wstring EscapeString(std::wstring_view text);

}  // namespace corvid
