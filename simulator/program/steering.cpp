#include "simulator/program/steering.h"

#include "simulator/commands/status_replies.h"
#include "simulator/line/bytes.h"
#include "simulator/program/help.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string>

namespace corvid::simulator {

std::string_view takeWord(std::string_view& rest) {
  const auto end = std::min(rest.find(' '), rest.size());
  const std::string_view word = rest.substr(0, end);
  rest.remove_prefix(std::min(rest.find_first_not_of(' ', end), rest.size()));
  return word;
}

std::optional<int> numberOf(std::string_view word) {
  int number = 0;
  const auto* end = word.data() + word.size();
  const auto read = std::from_chars(word.data(), end, number);
  const bool isNumber = read.ec == std::errc() && read.ptr == end && number >= 0;
  return isNumber ? std::optional(number) : std::nullopt;
}

namespace {

std::optional<int> timesOf(std::string_view word) {
  if (word == "on") {
    return kForEver;
  }
  return word == "off" ? 0 : numberOf(word);
}

// Reads a number where there is one and hands it on; false for a word that is none.
template <typename Use>
bool useOptional(std::string_view& rest, Use use) {
  if (rest.empty()) {
    return true;
  }
  const auto number = numberOf(takeWord(rest));
  if (number) {
    use(*number);
  }
  return number.has_value();
}

bool readGap(Misbehaviour& faults, std::string_view& rest) {
  return useOptional(rest, [&](int number) { faults.setGap(std::chrono::milliseconds(number)); });
}

bool readPosition(Misbehaviour& faults, std::string_view& rest) {
  return useOptional(rest,
                     [&](int number) { faults.setPosition(static_cast<std::size_t>(number)); });
}

bool readPositionAndGap(Misbehaviour& faults, std::string_view& rest) {
  return readPosition(faults, rest) && readGap(faults, rest);
}

bool readNoise(Misbehaviour& faults, std::string_view& rest) {
  const auto bytes = unescaped(rest);
  if (bytes && !rest.empty()) {
    faults.setNoise(*bytes);
  }
  rest = {};
  return bytes.has_value();
}

bool readNothing(Misbehaviour& /*faults*/, std::string_view& /*rest*/) { return true; }

struct FaultName {
  std::string_view name;
  Fault fault;
  bool (*readDetails)(Misbehaviour&, std::string_view&);
  std::string_view arguments;
  std::string_view help;
};

constexpr std::array kFaultNames = {
    FaultName{"refuse", Fault::Refuse, readNothing, "TIMES", "answer a command with NAK, undone"},
    FaultName{"silent", Fault::Silent, readNothing, "TIMES", "neither hear nor answer a message"},
    FaultName{"lose", Fault::Lose, readNothing, "TIMES", "lose an answer; what was told is done"},
    FaultName{"lose-ack", Fault::LoseAck, readNothing, "TIMES", "the same for an ACK or NAK alone"},
    FaultName{"hang-up", Fault::HangUp, readNothing, "TIMES",
              "end the connection in place of an answer (--tcp)"},
    FaultName{"bytewise", Fault::ByteByByte, readGap, "TIMES [MS]",
              "send an answer byte by byte, MS milliseconds apart"},
    FaultName{"split", Fault::Split, readPositionAndGap, "TIMES [BYTES] [MS]",
              "send an answer in two pieces, BYTES in the first"},
    FaultName{"enq-first", Fault::EnquiryFirst, readNothing, "TIMES", "put ENQ before an answer"},
    FaultName{"end-eot", Fault::EndWithEot, readNothing, "TIMES", "end a block with EOT, not ETX"},
    FaultName{"corrupt-check", Fault::CorruptCheck, readNothing, "TIMES",
              "send a wrong check byte"},
    FaultName{"corrupt-data", Fault::CorruptData, readPosition, "TIMES [POSITION]",
              "change a byte of a block; its STX is 0"},
    FaultName{"noise", Fault::Noise, readNoise, "TIMES [BYTES]", "send other bytes first, escaped"},
};

bool setFault(Misbehaviour& faults, const FaultName& name, std::string_view arguments) {
  const auto times = timesOf(takeWord(arguments));
  if (!times || !name.readDetails(faults, arguments) || !arguments.empty()) {
    return false;
  }
  faults.set(name.fault, *times);
  return true;
}

// A command of the table answers whether it understood its arguments.
struct Steer {
  std::string_view name;
  bool (*run)(Printer& printer, std::ostream& out, std::string_view arguments);
  std::string_view arguments;
  std::string_view help;
};

bool addBlock(Printer& printer, std::string_view prefix, std::string_view text) {
  const auto command = unescaped(prefix);
  const auto block = unescaped(text);
  if (!command || command->empty() || !block) {
    return false;
  }
  printer.misbehaviour().addAnswer(*command, *block);
  return true;
}

bool answer(Printer& printer, std::ostream& /*out*/, std::string_view arguments) {
  const std::string_view prefix = takeWord(arguments);
  printer.misbehaviour().forgetAnswer(unescaped(prefix).value_or(""));
  return arguments.empty() || addBlock(printer, prefix, arguments);
}

bool more(Printer& printer, std::ostream& /*out*/, std::string_view arguments) {
  const std::string_view prefix = takeWord(arguments);
  return addBlock(printer, prefix, arguments);
}

bool baud(Printer& printer, std::ostream& /*out*/, std::string_view arguments) {
  const auto number = numberOf(arguments);
  printer.misbehaviour().setBaud(number.value_or(0));
  return number.has_value();
}

bool error(Printer& printer, std::ostream& /*out*/, std::string_view arguments) {
  constexpr int kHighestStatus = 127;
  const auto number = numberOf(arguments);
  if (!number || *number > kHighestStatus) {
    return false;
  }
  printer.machine().error = *number;
  return true;
}

bool memoryFull(Printer& printer, std::ostream& /*out*/, std::string_view arguments) {
  printer.machine().isMemoryFull = arguments == "on";
  return arguments == "on" || arguments == "off";
}

bool powerCut(Printer& printer, std::ostream& /*out*/, std::string_view arguments) {
  const std::string_view fate = takeWord(arguments);
  const auto times = arguments.empty() ? std::optional(0) : timesOf(takeWord(arguments));
  if ((fate != "annul" && fate != "resume") || !times || !arguments.empty()) {
    return false;
  }
  printer.cutPower(fate == "resume" ? OpenDocument::Resumed : OpenDocument::Annulled);
  printer.misbehaviour().set(Fault::Silent, *times);
  return true;
}

bool reset(Printer& printer, std::ostream& /*out*/, std::string_view arguments) {
  printer.misbehaviour().reset();
  return arguments.empty();
}

bool paper(Printer& printer, std::ostream& out, std::string_view arguments) {
  out << printer.machine().paper.text();
  return arguments.empty();
}

bool state(Printer& printer, std::ostream& out, std::string_view arguments) {
  const std::string bytes = statusBytes(printer.machine());
  out << "status " << static_cast<int>(bytes.front()) << ' ' << static_cast<int>(bytes.back())
      << "\ndrawer " << printer.machine().drawerOpenings << "\ninvoice "
      << printer.machine().memory.last().of(DocumentKind::Invoice) << '\n';
  return arguments.empty();
}

constexpr std::array kSteers = {
    Steer{
        "power-cut", powerCut, "annul | resume [TIMES]",
        "lose what the memory does not hold; an open document ends or stays open; deaf for so many "
        "messages"},
    Steer{"error", error, "N", "the second status byte: 64 none, 65 no paper, any other to 127"},
    Steer{"memory-full", memoryFull, "on | off", "the fiscal memory takes no more"},
    Steer{"answer", answer, "COMMAND [TEXT]",
          "answer commands that begin so by TEXT; without it, as usual again"},
    Steer{"more", more, "COMMAND TEXT", "one more block of that answer"},
    Steer{"baud", baud, "N", "take and send bytes at so many bits a second; 0: at once"},
    Steer{"reset", reset, "", "end all faults, forget answers told"},
    Steer{"paper", paper, "", "show everything printed so far"},
    Steer{"state", state, "", "show status bytes, drawer openings and the last invoice's number"},
};

template <typename Table>
auto* named(const Table& table, std::string_view name) {
  const auto* found = std::find_if(table.begin(), table.end(),
                                   [&](const auto& entry) { return entry.name == name; });
  return found == table.end() ? nullptr : found;
}

std::string_view outcomeOf(bool isUnderstood) {
  return isUnderstood ? "ok" : "error: arguments not understood";
}

std::string_view run(Printer& printer, std::ostream& out, std::string_view line) {
  const std::string_view name = takeWord(line);
  if (const FaultName* fault = named(kFaultNames, name)) {
    return outcomeOf(setFault(printer.misbehaviour(), *fault, line));
  }
  if (const Steer* steer = named(kSteers, name)) {
    return outcomeOf(steer->run(printer, out, line));
  }
  return name == "quit" ? "ok" : "error: unknown command";
}

template <typename Entry>
std::string helpOf(const Entry& entry) {
  return helpLine(std::string(entry.name).append(" ").append(entry.arguments), entry.help);
}

}  // namespace

std::string steeringHelp() {
  std::string text;
  for (const FaultName& fault : kFaultNames) {
    text += helpOf(fault);
  }
  for (const Steer& steer : kSteers) {
    text += helpOf(steer);
  }
  return text + helpLine("quit", "end the program");
}

bool Steering::obey(std::string_view line) {
  while (line.ends_with('\r') || line.ends_with(' ')) {
    line.remove_suffix(1);
  }
  out_ << run(printer_, out_, line) << std::endl;
  return line != "quit";
}

}  // namespace corvid::simulator
