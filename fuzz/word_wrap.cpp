// Any text at any width: the first line is the width, the rest the text.
#include "documents/str2lines.h"
#include "input.h"

namespace corvid {
namespace {

std::wstring withoutBlanks(std::wstring text) {
  std::erase_if(text, [](wchar_t character) { return character <= L' '; });
  return text;
}

}  // namespace
}  // namespace corvid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid;
  fuzz::Input input(data, size);
  const int width = input.number(1, 100);
  const std::wstring text = windows1252().decode(input.rest());
  const Lines lines = lmStr2Lines(text, width);
  for (const std::wstring& line : lines) {
    fuzz::require(line.size() <= static_cast<std::size_t>(width), "no line is too wide");
  }
  fuzz::require(lines.empty() == text.empty(), "every text has lines");
  fuzz::require(withoutBlanks(join(lines, L"")) == withoutBlanks(text),
                "nothing but blanks is lost, and the order stays");
  return 0;
}
