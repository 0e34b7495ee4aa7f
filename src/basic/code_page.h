// Single-byte characters: how texts become bytes on the line, and bytes texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// A code page with one byte per character. Every byte has its character, and turning it back
// gives the same byte; a character outside the page becomes "?". Never fails.
class CodePage {
 public:
  virtual ~CodePage() = default;
  [[nodiscard]] virtual std::uint8_t toByte(wchar_t character) const = 0;
  [[nodiscard]] virtual wchar_t toCharacter(std::uint8_t byte) const = 0;

  [[nodiscard]] std::string encode(std::wstring_view text) const;
  [[nodiscard]] std::wstring decode(std::string_view bytes) const;
};

// Western European (Windows 1252), the page of the systems that these printers are sold for. The
// five bytes without a character of their own stand for the control characters of equal code.
[[nodiscard]] const CodePage& windows1252();

}  // namespace corvid
