// The user's region and the system's code page.
#pragma once

#include "basic/code_page.h"
#include "basic/locale.h"

#include <array>

namespace corvid {

class WindowsLocale : public LocaleSource {
 public:
  [[nodiscard]] Locale current() const override;
};

// The system's own page, or Western European where that has characters of several bytes: printers
// know one byte a character.
class WindowsCodePage : public CodePage {
 public:
  WindowsCodePage();
  [[nodiscard]] std::uint8_t toByte(wchar_t character) const override;
  [[nodiscard]] wchar_t toCharacter(std::uint8_t byte) const override;

 private:
  bool isSingleByte_;
  std::array<wchar_t, 256> characters_{};
};

}  // namespace corvid
