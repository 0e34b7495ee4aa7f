#include "simulator/line/bytes.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace corvid::simulator {
namespace {

// What Windows-1252 has at 0x80 to 0x9F; elsewhere its codes are Unicode's.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

char16_t unicodeOf(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 0x80 && code < 0xA0 ? kUpperControls.at(code - 0x80U) : char16_t{code};
}

void appendUtf8(std::string& text, char16_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
    return;
  }
  if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
  } else {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
  }
  text += static_cast<char>(0x80 | (code & 0x3F));
}

std::string tagOf(char control) {
  switch (control) {
    case kStx:
      return "[STX]";
    case kEtx:
      return "[ETX]";
    case kEot:
      return "[EOT]";
    case kEnq:
      return "[ENQ]";
    case kAck:
      return "[ACK]";
    case kNak:
      return "[NAK]";
    case kEtb:
      return "[ETB]";
    default: {
      const std::string digits = std::to_string(static_cast<unsigned char>(control));
      return "[" + std::string(3 - digits.size(), '0') + digits + "]";
    }
  }
}

bool isControl(char byte) { return static_cast<unsigned char>(byte) < 32 || byte == 127; }

std::optional<char> byteOfHexadecimal(std::string_view digits) {
  std::uint8_t code = 0;
  const auto* end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, code, 16);
  if (digits.size() != 2 || read.ptr != end) {
    return std::nullopt;
  }
  return static_cast<char>(code);
}

// The byte that an escape stands for; `rest` begins after the backslash and moves after it.
std::optional<char> takeEscape(std::string_view& rest) {
  const char kind = rest.empty() ? '\0' : rest.front();
  const bool isCode = kind == 'x';
  const std::string_view digits = isCode ? rest.substr(1, 2) : std::string_view();
  rest.remove_prefix(rest.empty() ? 0 : 1 + digits.size());
  if (isCode) {
    return byteOfHexadecimal(digits);
  }
  if (kind == 'n') {
    return '\n';
  }
  return kind == '\\' ? std::optional(kind) : std::nullopt;
}

}  // namespace

char checkByte(std::string_view bytes) {
  unsigned char check = 0;
  for (const char byte : bytes) {
    check = static_cast<unsigned char>(check ^ static_cast<unsigned char>(byte));
  }
  return static_cast<char>(check);
}

std::string framed(std::string_view text, char end) {
  std::string block(text);
  block += end;
  const char check = checkByte(block);
  return kStx + block + check;
}

std::string utf8(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    appendUtf8(text, unicodeOf(byte));
  }
  return text;
}

std::string readable(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    if (isControl(byte)) {
      text += tagOf(byte);
    } else {
      appendUtf8(text, unicodeOf(byte));
    }
  }
  return text;
}

std::string hexadecimal(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    text += text.empty() ? "" : " ";
    text += kDigits[code >> 4U];
    text += kDigits[code & 15U];
  }
  return text;
}

std::string escaped(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    const bool isPlain = byte >= ' ' && byte <= '~';
    if (byte == '\\') {
      text += "\\\\";
    } else if (isPlain) {
      text += byte;
    } else {
      text += "\\x" + hexadecimal(std::string_view(&byte, 1));
    }
  }
  return text;
}

std::optional<std::string> unescaped(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const char next = text.front();
    text.remove_prefix(1);
    const std::optional<char> byte = next == '\\' ? takeEscape(text) : std::optional(next);
    if (!byte) {
      return std::nullopt;
    }
    bytes += *byte;
  }
  return bytes;
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  const auto last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

}  // namespace corvid::simulator
