#include "protocol/framing.h"

#include "basic/format.h"
#include "basic/run_time_error.h"

#include <array>
#include <utility>

namespace corvid {
namespace {

constexpr wchar_t kFirstPlain = 33;

constexpr std::array<std::pair<wchar_t, std::wstring_view>, 7> kTags = {{
    {STX, L"[STX]"},
    {ENQ, L"[ENQ]"},
    {ETX, L"[ETX]"},
    {EOT, L"[EOT]"},
    {ACK, L"[ACK]"},
    {NAK, L"[NAK]"},
    {ETB, L"[ETB]"},
}};

std::wstring tagOf(wchar_t code) {
  for (const auto& [character, tag] : kTags) {
    if (character == code) return std::wstring(tag);
  }
  return L"[" + formatInteger(code, L"000") + L"]";
}

}  // namespace

std::wstring BuildCommandBlock(std::wstring_view command, const CodePage& codePage) {
  std::wstring block(1, STX);
  block += command;
  block += static_cast<wchar_t>(ETX);
  const std::int16_t check = CalcXOr(std::wstring_view(block).substr(1), codePage);
  block += codePage.toCharacter(static_cast<std::uint8_t>(check));
  return block;
}

std::int16_t CalcXOr(std::wstring_view text, const CodePage& codePage) {
  if (text.empty()) throw invalidProcedureCall();
  std::uint8_t check = 0;
  for (const wchar_t character : text) {
    check = static_cast<std::uint8_t>(check ^ codePage.toByte(character));
  }
  return check;
}

bool holdsLineControl(std::string_view bytes) {
  constexpr char kControls[] = {STX, ETX, EOT, ENQ, ACK, NAK, ETB};
  return bytes.find_first_of({kControls, sizeof kControls}) != std::string_view::npos;
}

std::wstring EscapeString(std::wstring_view text) {
  std::wstring readable;
  readable.reserve(text.size());
  for (const wchar_t character : text) {
    if (character < kFirstPlain) {
      readable += tagOf(character);
    } else {
      readable += character;
    }
  }
  return readable;
}

}  // namespace corvid
