// Looks at the line and at standard input each millisecond.
#include "simulator/program/host_line.h"
#include "simulator/program/program.h"

#include <windows.h>
// Needs windows.h first.
#include <mmsystem.h>

#include <array>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

namespace corvid::simulator {
namespace {

// Standard input, which can only be waited for in a thread of its own.
class Input {
 public:
  // What has come since the last call.
  [[nodiscard]] std::string taken() {
    const std::lock_guard lock(mutex_);
    return std::exchange(bytes_, {});
  }

  // Not by the run-time's streams: one that waits for input holds a lock that `exit` wants.
  void readAll() {
    std::array<char, 512> buffer;
    DWORD count = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), buffer.data(),
                    static_cast<DWORD>(buffer.size()), &count, nullptr) != FALSE &&
           count != 0) {
      const std::lock_guard lock(mutex_);
      bytes_.append(buffer.data(), count);
    }
  }

 private:
  std::mutex mutex_;
  std::string bytes_;
};

// Ticks of a millisecond, so that bytes leave one by one and not in lumps of the system's 15.6 ms.
class FineTicks {
 public:
  FineTicks() { timeBeginPeriod(1); }
  FineTicks(const FineTicks&) = delete;
  FineTicks& operator=(const FineTicks&) = delete;
  FineTicks(FineTicks&&) = delete;
  FineTicks& operator=(FineTicks&&) = delete;
  ~FineTicks() { timeEndPeriod(1); }
};

// The paper is UTF-8, a console's usual page is not. The console stays when the program has gone.
class Utf8Console {
 public:
  Utf8Console() : usual_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;
  Utf8Console(Utf8Console&&) = delete;
  Utf8Console& operator=(Utf8Console&&) = delete;
  ~Utf8Console() { SetConsoleOutputCP(usual_); }

 private:
  UINT usual_;
};

// Moves what there is to be moved now.
void exchange(HostLine& line, Program& program, std::string& unsent) {
  const auto received = line.receive();
  const auto now = std::chrono::steady_clock::now();
  if (received) {
    program.receive(*received, now);
  }
  const bool isEnded = program.takeHangUp();
  if (isEnded) {
    line.hangUp();
  }
  if (isEnded || !received) {
    unsent.clear();
    program.hangUp();
    return;
  }
  unsent += program.takeDue(now);
  if (!unsent.empty()) {
    unsent.erase(0, line.send(unsent));
  }
}

std::unique_ptr<HostLine> opened(const Options& options) {
  if (options.tcp) {
    return openTcp(*options.tcp);
  }
  if (!options.port.empty()) {
    return openPort(options.port);
  }
  throw std::runtime_error("--port COMn or --tcp HOST:PORT is needed");
}

}  // namespace

void serve(const Options& options, Program& program) {
  const std::unique_ptr<HostLine> line = opened(options);
  // Shared with the thread, which still waits for input when the program ends.
  const auto input = std::make_shared<Input>();
  std::thread([input] { input->readAll(); }).detach();
  program.announce(line->name());
  const FineTicks ticks;
  const Utf8Console console;
  std::string unsent;
  while (program.steer(input->taken())) {
    exchange(*line, program, unsent);
    Sleep(1);
  }
}

}  // namespace corvid::simulator
