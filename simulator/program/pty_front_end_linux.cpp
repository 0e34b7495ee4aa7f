// Serves a pseudo terminal, for hosts on the same machine.
#include "simulator/line/outbox.h"
#include "simulator/program/program.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace corvid::simulator {
namespace {

volatile std::sig_atomic_t isEndAsked = 0;

void askForEnd(int /*signal*/) { isEndAsked = 1; }

int checked(int result, const char* call) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), call);
  }
  return result;
}

class Descriptor {
 public:
  Descriptor(int number, const char* call) : number_(checked(number, call)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { close(number_); }

  [[nodiscard]] int get() const { return number_; }

 private:
  int number_;
};

// The file system's name of the terminal, for as long as this lives.
class Link {
 public:
  Link(const std::string& target, std::string name) : name_(std::move(name)) {
    struct stat old {};
    if (lstat(name_.c_str(), &old) == 0 && S_ISLNK(old.st_mode)) {
      unlink(name_.c_str());
    }
    checked(symlink(target.c_str(), name_.c_str()), name_.c_str());
  }
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  Link(Link&&) = delete;
  Link& operator=(Link&&) = delete;
  ~Link() { unlink(name_.c_str()); }

 private:
  std::string name_;
};

int openedMaster() {
  const int master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (master >= 0) {
    checked(grantpt(master), "grantpt");
    checked(unlockpt(master), "unlockpt");
  }
  return master;
}

std::string nameOfSlave(const Descriptor& master) {
  std::array<char, 256> name{};
  const int failure = ptsname_r(master.get(), name.data(), name.size());
  if (failure != 0) {
    throw std::system_error(failure, std::generic_category(), "ptsname_r");
  }
  return name.data();
}

void makeRaw(const Descriptor& terminal) {
  termios settings{};
  checked(tcgetattr(terminal.get(), &settings), "tcgetattr");
  cfmakeraw(&settings);
  checked(tcsetattr(terminal.get(), TCSANOW, &settings), "tcsetattr");
}

// A pseudo terminal knows no parity, and setting one fails where nothing else changes: the second
// host, which finds the settings of the first, could not open the port. A break, which a pseudo
// terminal does not know either, is what every host may change.
void leaveSomethingToSet(int terminal) {
  termios settings{};
  if (tcgetattr(terminal, &settings) == 0 && (settings.c_iflag & IGNBRK) != 0) {
    settings.c_iflag &= ~static_cast<tcflag_t>(IGNBRK);
    tcsetattr(terminal, TCSANOW, &settings);
  }
}

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
  Loop(Program& program, int master, int slave)
      : program_(program), master_(master), slave_(slave), whileWaiting_(catchEndSignals()) {}

  void run() {
    while (isGoingOn_ && isEndAsked == 0) {
      unsent_ += outbox_.takeDue(std::chrono::steady_clock::now());
      send();
      wait();
    }
  }

 private:
  // Not everything may fit while no host reads; the rest waits until the terminal takes it.
  void send() {
    const ssize_t count = write(master_, unsent_.data(), unsent_.size());
    if (count > 0) {
      unsent_.erase(0, static_cast<std::size_t>(count));
    }
  }

  void wait() {
    const auto events = static_cast<std::int16_t>(unsent_.empty() ? POLLIN : POLLIN | POLLOUT);
    std::array<pollfd, 2> sources = {pollfd{master_, events, 0}, pollfd{input_, POLLIN, 0}};
    const std::optional<timespec> pause = untilNextPiece();
    if (ppoll(sources.data(), sources.size(), pause ? &*pause : nullptr, &whileWaiting_) <= 0) {
      return;
    }
    if ((sources[0].revents & POLLIN) != 0) {
      takeLine();
    }
    if (sources[1].revents != 0) {
      takeInput();
    }
  }

  [[nodiscard]] std::optional<timespec> untilNextPiece() const {
    const auto due = outbox_.nextDue();
    if (!due) {
      return std::nullopt;
    }
    const auto left = std::max(std::chrono::nanoseconds(0),
                               std::chrono::nanoseconds(*due - std::chrono::steady_clock::now()));
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    return timespec{seconds.count(), (left - seconds).count()};
  }

  void takeLine() {
    const ssize_t count = read(master_, buffer_.data(), buffer_.size());
    if (count > 0) {
      leaveSomethingToSet(slave_);
      outbox_.add(program_.receive({buffer_.data(), static_cast<std::size_t>(count)}),
                  std::chrono::steady_clock::now());
    }
  }

  // A closed standard input leaves the printer running.
  void takeInput() {
    const ssize_t count = read(input_, buffer_.data(), buffer_.size());
    if (count <= 0) {
      input_ = -1;
      return;
    }
    isGoingOn_ = program_.steer({buffer_.data(), static_cast<std::size_t>(count)});
  }

  Program& program_;
  int master_;
  int slave_;
  int input_ = STDIN_FILENO;
  sigset_t whileWaiting_;
  Outbox outbox_;
  std::string unsent_;
  std::array<char, 4096> buffer_{};
  bool isGoingOn_ = true;
};

}  // namespace

int serve(const Options& options, Program& program) {
  if (options.pty.empty()) {
    throw std::system_error(EINVAL, std::generic_category(), "--pty LINK is needed");
  }
  const Descriptor master(openedMaster(), "posix_openpt");
  const std::string name = nameOfSlave(master);
  // Kept open, or the line would hang up between two hosts.
  const Descriptor slave(open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), "open");
  makeRaw(slave);
  const Link link(name, options.pty);
  Loop loop(program, master.get(), slave.get());
  program.announce(options.pty);
  loop.run();
  return 0;
}

}  // namespace corvid::simulator
