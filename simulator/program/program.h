// The printer as a program: its files and its steering, around the line that a front end moves.
#pragma once

#include "simulator/device/memory_file.h"
#include "simulator/line/outbox.h"
#include "simulator/program/options.h"
#include "simulator/program/printer.h"
#include "simulator/program/script.h"
#include "simulator/program/steering.h"

#include <fstream>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

class Program {
 public:
  // Opens the files that the options name, reads the dump to replay, and obeys their lines and
  // those of the script without an answer. std::runtime_error for a file that does not open, a
  // damaged memory, or a line that is not understood.
  Program(const Options& options, std::ostream& out);
  // The printer's listeners point into the program.
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  Program(Program&&) = delete;
  Program& operator=(Program&&) = delete;
  ~Program() = default;

  // Takes bytes of the host. std::runtime_error when the memory's file cannot be written.
  void receive(std::string_view bytes, Moment now);
  // What leaves now, and when there will be more.
  [[nodiscard]] std::string takeDue(Moment now) { return outbox_.takeDue(now); }
  [[nodiscard]] std::optional<Moment> nextDue() const { return outbox_.nextDue(); }
  // The host is gone, and what was on its way to it is lost.
  void hangUp() { outbox_.clear(); }
  // The exit code; of a replay that the host did not follow to its end 3, and then this says so.
  [[nodiscard]] int finish();

  // Whether the host's connection ends now, once for each time.
  [[nodiscard]] bool takeHangUp() { return printer_.takeHangUp(); }

  // Takes bytes of standard input and obeys every whole line in them; false after "quit", which is
  // all that a replay obeys.
  bool steer(std::string_view bytes);

  // Tells the one who waits for it that the line is open.
  void announce(std::string_view line);

 private:
  void keepWire(const std::string& name);
  void note(Printer::Direction direction, std::string_view bytes);
  void startReplay(const Options& options);
  void replayTo(std::string_view bytes, Moment now);
  void obeyScript(Printer::Stage stage, int command);
  void dropLost();

  Printer printer_;
  Outbox outbox_;
  std::ostream& out_;
  Steering steering_;
  std::optional<Replay> replay_;  // in place of the printer
  Script script_;
  MemoryFile memory_;
  std::ofstream paper_;
  std::ofstream wire_;
  std::string input_;  // standard input since its last line end
};

// One line of the wire file: ">" (from the host) or "<", the bytes made readable, a tab, and the
// bytes in hexadecimal.
[[nodiscard]] std::string wireLine(Printer::Direction direction, std::string_view bytes);

// Defined by the platform's front end: serves the line that the options name until "quit".
// std::runtime_error when the line does not open.
void serve(const Options& options, Program& program);

}  // namespace corvid::simulator
