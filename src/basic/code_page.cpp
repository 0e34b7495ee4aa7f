#include "basic/code_page.h"

#include <algorithm>
#include <array>

namespace corvid {
namespace {

constexpr std::uint8_t kFirstOwn = 0x80;
constexpr std::uint8_t kLastOwn = 0x9F;
constexpr std::uint8_t kUnknown = '?';

// The characters of bytes 0x80 to 0x9F; all the others have the character of equal code.
constexpr auto kOwn = std::to_array<wchar_t>(
    {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
     0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
     0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178});

class Windows1252 final : public CodePage {
 public:
  [[nodiscard]] std::uint8_t toByte(wchar_t character) const override {
    const auto sameCode = static_cast<std::uint8_t>(character);
    if (toCharacter(sameCode) == character) return sameCode;
    const auto* const place = std::ranges::find(kOwn, character);
    if (place == kOwn.end()) return kUnknown;
    return static_cast<std::uint8_t>(kFirstOwn + (place - kOwn.begin()));
  }

  [[nodiscard]] wchar_t toCharacter(std::uint8_t byte) const override {
    if (byte < kFirstOwn || byte > kLastOwn) return byte;
    return kOwn.at(byte - kFirstOwn);
  }
};

}  // namespace

std::string CodePage::encode(std::wstring_view text) const {
  std::string bytes;
  bytes.reserve(text.size());
  for (const wchar_t character : text) bytes += static_cast<char>(toByte(character));
  return bytes;
}

std::wstring CodePage::decode(std::string_view bytes) const {
  std::wstring text;
  text.reserve(bytes.size());
  for (const char byte : bytes) text += toCharacter(static_cast<std::uint8_t>(byte));
  return text;
}

const CodePage& windows1252() {
  static const Windows1252 page;
  return page;
}

}  // namespace corvid
