// A pseudo terminal, for hosts on the same machine.
#include "simulator/program/descriptor_linux.h"
#include "simulator/program/host_line.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>

#include <array>
#include <cstdlib>

namespace corvid::simulator {
namespace {

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

  [[nodiscard]] const std::string& name() const { return name_; }

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

class PtyLine : public HostLine {
 public:
  explicit PtyLine(const std::string& link)
      : master_(openedMaster(), "posix_openpt"),
        // Kept open, or the line would hang up between two hosts.
        slave_(open(nameOfSlave(master_).c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), "open"),
        link_(nameOfSlave(master_), link) {
    makeRaw(slave_);
  }

  [[nodiscard]] std::string name() const override { return link_.name(); }
  [[nodiscard]] int descriptor() const override { return master_.get(); }

  [[nodiscard]] std::optional<std::string> receive() override {
    std::array<char, 4096> buffer{};
    const ssize_t count = read(master_.get(), buffer.data(), buffer.size());
    if (count <= 0) {
      return "";
    }
    leaveSomethingToSet(slave_.get());
    return std::string(buffer.data(), static_cast<std::size_t>(count));
  }

  // Not everything may fit while no host reads.
  [[nodiscard]] std::size_t send(std::string_view bytes) override {
    const ssize_t count = write(master_.get(), bytes.data(), bytes.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
  }

 private:
  Descriptor master_;
  Descriptor slave_;
  Link link_;
};

}  // namespace

std::unique_ptr<HostLine> openPty(const std::string& link) {
  return std::make_unique<PtyLine>(link);
}

}  // namespace corvid::simulator
