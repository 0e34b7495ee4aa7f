// The two ends of a line in memory.
#pragma once

#include <cstddef>
#include <string_view>

namespace corvid {

// The end at which the library is.
class NearEnd {
 public:
  virtual ~NearEnd() = default;
  // Sends bytes on the line written last (opened last, where none was), that many seconds from now
  // and after what is on its way.
  virtual void deliver(std::string_view bytes, double delaySeconds) = 0;
  void deliver(std::string_view bytes) { deliver(bytes, 0); }
  // Bytes that arrived, or are on their way, and nobody has read.
  [[nodiscard]] virtual std::size_t unread() const = 0;
};

// The far end. Answers by NearEnd::deliver, at once or later.
class LinePeer {
 public:
  virtual ~LinePeer() = default;
  virtual void received(std::string_view bytes, NearEnd& line) = 0;
};

}  // namespace corvid
