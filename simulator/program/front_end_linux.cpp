// Waits for the line, for standard input and for the time of the next answer, all at once.
#include "simulator/program/host_line.h"
#include "simulator/program/program.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <ctime>
#include <stdexcept>

namespace corvid::simulator {
namespace {

volatile std::sig_atomic_t isEndAsked = 0;

void askForEnd(int /*signal*/) { isEndAsked = 1; }

// Signals arrive only while the loop waits, so that none is missed between test and wait.
sigset_t catchEndSignals() {
  sigset_t ends;
  sigset_t before;
  sigemptyset(&ends);
  sigaddset(&ends, SIGTERM);
  sigaddset(&ends, SIGINT);
  pthread_sigmask(SIG_BLOCK, &ends, &before);
  struct sigaction action {};
  action.sa_handler = askForEnd;
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGINT, &action, nullptr);
  sigdelset(&before, SIGTERM);
  sigdelset(&before, SIGINT);
  return before;
}

class Loop {
 public:
  Loop(Program& program, HostLine& line)
      : program_(program), line_(line), whileWaiting_(catchEndSignals()) {}

  void run() {
    while (isGoingOn_ && isEndAsked == 0) {
      unsent_ += program_.takeDue(std::chrono::steady_clock::now());
      if (!unsent_.empty()) {
        unsent_.erase(0, line_.send(unsent_));
      }
      wait();
    }
  }

 private:
  void wait() {
    const auto events = static_cast<std::int16_t>(unsent_.empty() ? POLLIN : POLLIN | POLLOUT);
    std::array<pollfd, 2> sources = {pollfd{line_.descriptor(), events, 0},
                                     pollfd{input_, POLLIN, 0}};
    const std::optional<timespec> pause = untilNextPiece();
    if (ppoll(sources.data(), sources.size(), pause ? &*pause : nullptr, &whileWaiting_) <= 0) {
      return;
    }
    if ((sources[0].revents & ~POLLOUT) != 0) {
      takeLine();
    }
    if (sources[1].revents != 0) {
      takeInput();
    }
  }

  [[nodiscard]] std::optional<timespec> untilNextPiece() const {
    const auto due = program_.nextDue();
    if (!due) {
      return std::nullopt;
    }
    const auto left = std::max(std::chrono::nanoseconds(0),
                               std::chrono::nanoseconds(*due - std::chrono::steady_clock::now()));
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    return timespec{seconds.count(), (left - seconds).count()};
  }

  void takeLine() {
    if (const auto bytes = line_.receive()) {
      program_.receive(*bytes, std::chrono::steady_clock::now());
      if (!program_.takeHangUp()) {
        return;
      }
      line_.hangUp();
    }
    unsent_.clear();
    program_.hangUp();
  }

  // A closed standard input leaves the printer running.
  void takeInput() {
    std::array<char, 4096> buffer{};
    const ssize_t count = read(input_, buffer.data(), buffer.size());
    if (count <= 0) {
      input_ = -1;
      return;
    }
    isGoingOn_ = program_.steer({buffer.data(), static_cast<std::size_t>(count)});
  }

  Program& program_;
  HostLine& line_;
  int input_ = STDIN_FILENO;
  sigset_t whileWaiting_;
  std::string unsent_;
  bool isGoingOn_ = true;
};

std::unique_ptr<HostLine> opened(const Options& options) {
  if (options.tcp) {
    return openTcp(*options.tcp);
  }
  if (!options.pty.empty()) {
    return openPty(options.pty);
  }
  throw std::runtime_error("--pty LINK or --tcp HOST:PORT is needed");
}

}  // namespace

void serve(const Options& options, Program& program) {
  const std::unique_ptr<HostLine> line = opened(options);
  Loop loop(program, *line);
  program.announce(line->name());
  loop.run();
}

}  // namespace corvid::simulator
