#include "simulator/program/script.h"

#include "simulator/program/steering.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace corvid::simulator {
namespace {

std::string_view trimmed(std::string_view text) {
  const auto begin = std::min(text.find_first_not_of(" \t"), text.size());
  const auto end = text.find_last_not_of(" \t\r");
  return end == std::string_view::npos ? std::string_view() : text.substr(begin, end + 1 - begin);
}

std::optional<Printer::Stage> stageOf(std::string_view word) {
  if (word == "at") {
    return Printer::Stage::Arrived;
  }
  return word == "after" ? std::optional(Printer::Stage::CarriedOut) : std::nullopt;
}

// Tried on a printer that nobody sees.
void checkUnderstood(std::string_view line) {
  Printer printer({}, systemTime);
  std::ostringstream answer;
  if (!Steering(printer, answer).obey(line)) {
    throw std::runtime_error("quit has no place in a script");
  }
  const std::string said = answer.str();
  const auto error = said.find("error: ");
  if (error != std::string::npos) {
    throw std::runtime_error(std::string(trimmed(said.substr(error + 7, said.find('\n') - 7))));
  }
}

}  // namespace

Script::Script(std::string_view text) {
  for (int number = 1; !text.empty(); ++number) {
    const auto end = std::min(text.find('\n'), text.size());
    try {
      add(trimmed(text.substr(0, end)));
    } catch (const std::runtime_error& error) {
      throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

void Script::add(std::string_view line) {
  if (line.empty() || line.front() == '#') {
    return;
  }
  std::string_view rest = line;
  const auto stage = stageOf(takeWord(rest));
  if (!stage) {
    checkUnderstood(line);
    first_.emplace_back(line);
    return;
  }
  const auto command = numberOf(takeWord(rest));
  if (!command || *command == 0) {
    throw std::runtime_error("a command's number is missing");
  }
  checkUnderstood(rest);
  timed_.push_back({*stage, *command, std::string(rest)});
}

std::vector<std::string> Script::due(Printer::Stage stage, int command) const {
  std::vector<std::string> lines;
  for (const Timed& timed : timed_) {
    if (timed.stage == stage && timed.command == command) {
      lines.push_back(timed.line);
    }
  }
  return lines;
}

}  // namespace corvid::simulator
