// The line to the host, as a front end moves its bytes.
#pragma once

#include "simulator/program/options.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvid::simulator {

// std::system_error from a member that meets a failure of the system.
class HostLine {
 public:
  virtual ~HostLine() = default;

  // As it is announced.
  [[nodiscard]] virtual std::string name() const = 0;
  // What to wait for, where the system has such a number: the line has bytes, or a host.
  [[nodiscard]] virtual int descriptor() const { return -1; }
  // What has arrived, without waiting; nothing where the host has hung up.
  [[nodiscard]] virtual std::optional<std::string> receive() = 0;
  // Ends the host's connection; a cable has none.
  virtual void hangUp() {}
  // The count of bytes that the line took now.
  [[nodiscard]] virtual std::size_t send(std::string_view bytes) = 0;
};

// Each platform has two of the three.
[[nodiscard]] std::unique_ptr<HostLine> openPty(const std::string& link);
[[nodiscard]] std::unique_ptr<HostLine> openPort(const std::string& name);
// Serves one host after the other; while it does, the next one waits, connected but unheard.
[[nodiscard]] std::unique_ptr<HostLine> openTcp(const ListenAddress& address);

}  // namespace corvid::simulator
