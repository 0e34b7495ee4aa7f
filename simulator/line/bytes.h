// Control bytes of the line, framing, and bytes made readable. Texts on the line and on the paper
// are single bytes (Windows-1252).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvid::simulator {

inline constexpr char kStx = '\x02';
inline constexpr char kEtx = '\x03';
inline constexpr char kEot = '\x04';
inline constexpr char kEnq = '\x05';
inline constexpr char kAck = '\x06';
inline constexpr char kNak = '\x15';
inline constexpr char kEtb = '\x17';

// The XOR of all bytes; 0 for none.
[[nodiscard]] char checkByte(std::string_view bytes);

// STX, the text, `end`, and the check byte over what stands after STX.
[[nodiscard]] std::string framed(std::string_view text, char end = kEtx);

// Windows-1252 as UTF-8. The five codes without a character become U+FFFD.
[[nodiscard]] std::string utf8(std::string_view bytes);

// UTF-8, with the control bytes (below 32, and 127) as [STX], [ACK] and so on, or [010].
[[nodiscard]] std::string readable(std::string_view bytes);

// "02 77 03 74".
[[nodiscard]] std::string hexadecimal(std::string_view bytes);

// ASCII without control bytes: a backslash as \\, and all other bytes as \xHH.
[[nodiscard]] std::string escaped(std::string_view bytes);

// Reverses the escapes \n (line feed), \\ and \xHH; every other byte stands for itself. Nothing
// for an escape that is none of these.
[[nodiscard]] std::optional<std::string> unescaped(std::string_view text);

[[nodiscard]] std::string_view withoutTrailingBlanks(std::string_view text);

}  // namespace corvid::simulator
