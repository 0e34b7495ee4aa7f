// The simulated printer's line commands, a line each; a line that begins with a bar sends the rest
// of it, escaped, to the printer.
#include "input.h"
#include "simulator/commands/status_replies.h"
#include "simulator/line/bytes.h"
#include "simulator/program/steering.h"

#include <sstream>

namespace corvid::simulator {
namespace {

using fuzz::require;

std::string answer(Printer& printer, std::string_view bytes) {
  std::string joined;
  for (const Chunk& chunk : printer.receive(bytes)) joined += chunk.bytes;
  return joined;
}

void obey(Printer& printer, std::string_view line) {
  std::ostringstream out;
  require(Steering(printer, out).obey(line) || line.starts_with("quit"), "only quit ends");
  const std::string told = "\n" + out.str();
  const std::size_t last = told.rfind('\n', told.size() - 2) + 1;
  require(told.substr(last) == "ok\n" || told.substr(last).starts_with("error: "),
          "every line has one answer");
}

void checkEscape(std::string_view text) {
  require(unescaped(escaped(text)) == text, "what is escaped can be read");
}

}  // namespace
}  // namespace corvid::simulator

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid::simulator;
  corvid::fuzz::Input input(data, size);
  Printer printer({}, [] { return LocalTime{2026, 3, 14, 10, 30, 15}; });
  while (!input.isEmpty()) {
    const std::string_view line = input.bytes();
    if (line.starts_with('|')) {
      static_cast<void>(answer(printer, unescaped(line.substr(1)).value_or("")));
    } else {
      obey(printer, line);
    }
    checkEscape(line);
  }
  printer.misbehaviour().reset();
  corvid::fuzz::require(answer(printer, "\5\5").ends_with(framed(statusBytes(printer.machine()))),
                        "after a reset the printer tells its status");
  return 0;
}
