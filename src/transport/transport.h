// A byte stream to one printer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// How a driver ends a read that asks for more than is there.
enum class ReadManner { Unseen, AtOnce, WaitsOut };

// Knows no control byte and runs none of the host's code. Failures are returned, and errorText()
// then has the words of the last one. One thread.
class Transport {
 public:
  virtual ~Transport() = default;

  // 0, or the error's number; a failure may leave the stream open, to be closed.
  virtual std::int32_t open() = 0;
  // 0, or the error's number; the stream counts as closed in both cases.
  virtual std::int32_t close() = 0;
  [[nodiscard]] virtual bool isOpen() const = 0;
  // Puts the lines that a printer looks at where it expects them. A stream without lines, and a
  // device that refuses, do nothing.
  virtual void setLines() = 0;

  // Appends what is there; the count of bytes, 0 at once when none is waiting, -1 on failure.
  virtual std::int32_t read(std::string& bytes) = 0;
  // Takes off the stream what is waiting, and returns it. A failure ends it quietly: the next read
  // meets it again.
  virtual std::string discard() = 0;
  // The count of bytes written, or -1.
  virtual std::int32_t write(std::string_view bytes) = 0;

  [[nodiscard]] virtual std::wstring errorText() const = 0;
  // The network address, as the setting writes it; empty for a port of this machine.
  [[nodiscard]] virtual std::wstring address() const { return {}; }
  // By the last read that showed it; reads of exactly what is waiting never do.
  [[nodiscard]] virtual ReadManner readManner() const { return ReadManner::Unseen; }
};

}  // namespace corvid
