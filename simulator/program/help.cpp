#include "simulator/program/help.h"

#include "simulator/program/options.h"
#include "simulator/program/steering.h"

#include <algorithm>

namespace corvid::simulator {
namespace {

constexpr std::size_t kNameWidth = 36;
constexpr std::size_t kWidth = 100;

constexpr std::string_view kExamples =
    R"(corvid-printer: a simulated fiscal printer, to try a point-of-sale program without one.

Usage: corvid-printer OPTION VALUE ...

  corvid-printer --tcp 127.0.0.1:4000 --paper -

      waits for a host and shows each line that it prints. The host's ORV.ini says
          [Config\Puertos]
          7=tcp:127.0.0.1:4000
      and Abrir 7 reaches this printer. "paper", "state" and "quit" are typed here.

  corvid-printer --tcp 127.0.0.1:4000 --memory shop.memory

      keeps counters and Z reports from one start to the next.

  corvid-printer --tcp 127.0.0.1:4000 --script faults.txt

      misbehaves when the host sends its third and its fifth command, if faults.txt says
          # printed, but the host never hears of it
          after 3 lose 1
          # the power goes; the open document ends; two messages are not heard
          at 5 power-cut annul 2

  corvid-printer --tcp 127.0.0.1:4000 --replay dump.txt

      answers as the port dump of a shop recorded it (settings DEBUG=1 and DumpFile in
      [Config\ModComm]), and says where the host departs from it.
)";

constexpr std::string_view kSteering = R"(
Lines of steering, on standard input, by --do or in a script. TIMES is a number, on or off; \n in a
text is a line feed, \xHH any byte, \\ a backslash. Each line typed is answered by "ok" or "error: "
and a reason:
)";

constexpr std::string_view kScript = R"(
In a script each line is one of these. Commands are counted from 1, queries and repetitions too,
status requests not:
)";

constexpr std::string_view kExitCodes = R"(
Exit code: 0; 1 for a line or file that does not open, is damaged or fails; 2 for options that make
no sense; 3 for a replay that the host did not follow to its end.
)";

}  // namespace

std::string helpLine(std::string_view name, std::string_view words) {
  std::string text("  ");
  text.append(name);
  text.append(name.size() + 2 < kNameWidth ? kNameWidth - name.size() - 2 : 1, ' ');
  std::size_t column = text.size();
  while (!words.empty()) {
    const auto end = std::min(words.find(' '), words.size());
    if (column + end > kWidth) {
      text.back() = '\n';  // in place of the last blank
      text.append(kNameWidth, ' ');
      column = kNameWidth;
    }
    text.append(words.substr(0, end)).append(" ");
    column += end + 1;
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text + "\n";
}

std::string help() {
  std::string text(kExamples);
  text.append(optionsHelp()).append(kSteering).append(steeringHelp()).append(kScript);
  text += helpLine("LINE", "obeyed before the line to the host opens");
  text += helpLine("at N LINE", "obeyed when command N arrives, before anything is done about it");
  text +=
      helpLine("after N LINE", "obeyed when command N was carried out, before its answer leaves");
  text += helpLine("# TEXT", "nothing");
  return text.append(kExitCodes);
}

}  // namespace corvid::simulator
