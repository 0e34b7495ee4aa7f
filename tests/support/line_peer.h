// The two ends of a line in memory.
#pragma once

#include <string_view>

namespace corvid {

// The end at which the library is.
class LineEnd {
 public:
  virtual ~LineEnd() = default;
  // Sends bytes on the line written last (opened last, where none was), that many seconds from now
  // and after what is on its way.
  virtual void deliver(std::string_view bytes, double delaySeconds) = 0;
  void deliver(std::string_view bytes) { deliver(bytes, 0); }
};

// The far end. Answers by LineEnd::deliver, at once or later.
class LinePeer {
 public:
  virtual ~LinePeer() = default;
  virtual void received(std::string_view bytes, LineEnd& line) = 0;
};

}  // namespace corvid
