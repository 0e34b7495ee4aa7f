#include "simulator/program/program.h"

#include "simulator/line/bytes.h"

#include <iterator>
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

// What `parse` makes of a file; its complaints come out with the file's name.
template <typename Parse>
auto parsedFile(const std::string& name, Parse parse) {
  std::ifstream file(name, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) {
    throw std::runtime_error("cannot read " + name);
  }
  try {
    return parse(text);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(name + ", " + error.what());
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
  if (options.paper == kConsole) {
    printer_.machine().paper.onLine(
        [this](std::string_view line) { out_ << utf8(line) << std::endl; });
  } else if (!options.paper.empty()) {
    open(paper_, options.paper);
    printer_.machine().paper.onLine(
        [this](std::string_view line) { paper_ << utf8(line) << std::endl; });
  }
  if (!options.wire.empty()) {
    keepWire(options.wire);
  }
  if (!options.replay.empty()) {
    startReplay(options);
  }
  for (const std::string& line : options.steering) {
    obeyAtStart(printer_, line);
  }
  if (!options.script.empty()) {
    script_ = parsedFile(options.script, [](const std::string& text) { return Script(text); });
    for (const std::string& line : script_.first()) {
      obeyAtStart(printer_, line);
    }
    printer_.onCommand([this](Printer::Stage stage, int command) { obeyScript(stage, command); });
  }
}

void Program::keepWire(const std::string& name) {
  open(wire_, name);
  printer_.onWire(
      [this](Printer::Direction direction, std::string_view bytes) { note(direction, bytes); });
}

void Program::note(Printer::Direction direction, std::string_view bytes) {
  if (wire_.is_open()) {
    wire_ << wireLine(direction, bytes) << std::endl;
  }
}

void Program::startReplay(const Options& options) {
  replay_.emplace(parsedFile(options.replay, parsedDump), options.silences);
  outbox_.add(replay_->begin(), Moment{});
}

void Program::replayTo(std::string_view bytes, Moment now) {
  if (bytes.empty() || replay_->isDeparted()) {
    return;
  }
  note(Printer::Direction::FromHost, bytes);
  const bool wasAtEnd = replay_->isAtEnd();
  const std::vector<Chunk> answers = replay_->receive(bytes);
  // What was read before this write comes before what was read after it.
  outbox_.hurry(now);
  outbox_.add(answers, now);
  for (const Chunk& chunk : answers) {
    note(Printer::Direction::ToHost, chunk.bytes);
  }
  if (replay_->isDeparted()) {
    outbox_.clear();
  }
  if (replay_->isDeparted() || (replay_->isAtEnd() && !wasAtEnd)) {
    out_ << "replay: " << replay_->report() << std::endl;
  }
}

int Program::finish() {
  constexpr int kNotFollowed = 3;
  if (!replay_ || replay_->isAtEnd()) {
    return 0;
  }
  if (!replay_->isDeparted()) {
    out_ << "replay: " << replay_->report() << std::endl;
  }
  return kNotFollowed;
}

void Program::receive(std::string_view bytes, Moment now) {
  if (replay_) {
    replayTo(bytes, now);
    return;
  }
  const std::vector<Chunk> answers = printer_.receive(bytes);
  dropLost();
  outbox_.add(answers, now);
}

void Program::dropLost() {
  if (printer_.takeLoss()) {
    outbox_.clear();
  }
}

// Shows what the lines show, without the answers that a harness would take for its own.
void Program::obeyScript(Printer::Stage stage, int command) {
  for (const std::string& line : script_.due(stage, command)) {
    std::ostringstream answer;
    Steering(printer_, answer).obey(line);
    out_ << answer.str().substr(0, answer.str().rfind("ok\n")) << std::flush;
  }
}

bool Program::steer(std::string_view bytes) {
  input_ += bytes;
  for (auto end = input_.find('\n'); end != std::string::npos; end = input_.find('\n')) {
    const std::string line = input_.substr(0, end);
    input_.erase(0, end + 1);
    if (replay_ && !line.starts_with("quit")) {
      out_ << "error: a replay obeys quit alone" << std::endl;
    } else if (!steering_.obey(line)) {
      return false;
    }
    dropLost();
  }
  return true;
}

void Program::announce(std::string_view line) { out_ << "ready " << line << std::endl; }

std::string wireLine(Printer::Direction direction, std::string_view bytes) {
  const std::string mark = direction == Printer::Direction::FromHost ? "> " : "< ";
  return mark + readable(bytes) + '\t' + hexadecimal(bytes);
}

}  // namespace corvid::simulator
