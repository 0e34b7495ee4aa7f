#include "simulator/program/program.h"

#include "simulator/line/bytes.h"

#include <sstream>
#include <stdexcept>

namespace corvid::simulator {
namespace {

constexpr int kBaudOfAPort = 9600;

Clock clockOf(const Options& options) {
  if (!options.clock) {
    return systemTime;
  }
  return [time = *options.clock] { return time; };
}

void open(std::ofstream& file, const std::string& name) {
  file.open(name, std::ios::app | std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot write " + name);
  }
}

// Says nothing: the first line that a harness reads is that the line is open.
void obeyAtStart(Printer& printer, const std::string& line) {
  std::ostringstream answer;
  Steering(printer, answer).obey(line);
  if (answer.str().starts_with("error")) {
    throw std::runtime_error("--do " + line + ": " + answer.str());
  }
}

}  // namespace

Program::Program(const Options& options, std::ostream& out)
    : printer_(options.configuration, clockOf(options)),
      out_(out),
      steering_(printer_, out),
      memory_(options.memory) {
  // A pair of virtual ports would hand on whole answers at once, as no cable does.
  if (!options.port.empty()) printer_.misbehaviour().setBaud(kBaudOfAPort);
  if (!options.memory.empty()) {
    memory_.load(printer_.machine());
    printer_.onDone([this](const Machine& machine) { memory_.save(machine); });
  }
  if (!options.paper.empty()) {
    open(paper_, options.paper);
    printer_.machine().paper.onLine(
        [this](std::string_view line) { paper_ << utf8(line) << std::endl; });
  }
  if (!options.wire.empty()) {
    open(wire_, options.wire);
    printer_.onWire([this](Printer::Direction direction, std::string_view bytes) {
      wire_ << wireLine(direction, bytes) << std::endl;
    });
  }
  for (const std::string& line : options.steering) {
    obeyAtStart(printer_, line);
  }
}

bool Program::steer(std::string_view bytes) {
  input_ += bytes;
  for (auto end = input_.find('\n'); end != std::string::npos; end = input_.find('\n')) {
    const std::string line = input_.substr(0, end);
    input_.erase(0, end + 1);
    if (!steering_.obey(line)) {
      return false;
    }
  }
  return true;
}

void Program::announce(std::string_view line) { out_ << "ready " << line << std::endl; }

std::string wireLine(Printer::Direction direction, std::string_view bytes) {
  const std::string mark = direction == Printer::Direction::FromHost ? "> " : "< ";
  return mark + readable(bytes) + '\t' + hexadecimal(bytes);
}

}  // namespace corvid::simulator
