// A session's line to its printer: one opening of a port after the other.
#pragma once

#include "exchange/thread_state.h"
#include "platform/pauses.h"
#include "transport/transport.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace corvid {

// One opening of the port, from Abrir to Cerrar.
struct Opening {
  std::shared_ptr<Transport> transport;

  double lastTaken = 0;  // when the last byte was taken (monotonic)
  // False while an answer may be under way that nobody waits for: at first, since a session before
  // this one may have asked.
  bool isSettled = false;
  // Status requests without an answer since the last block that had one. Answers keep the order of
  // what they answer, so theirs may come before the next block's, and are not that.
  int statusesDue = 0;
  int failuresInARow = 0;  // calls that failed
  double firstFailure = 0;
};
using OpeningRef = std::shared_ptr<Opening>;

// What a look at the line found.
enum class Look {
  Bytes,
  Nothing,
  Quiet,   // nothing, 60 ms or more after the last byte was taken
  Failed,  // the port failed, this time
  Lost,    // it failed at three calls over 100 ms: the device is gone
  Closed,  // the host has closed or reopened the session
};

// Every look and every write lets the host's message loop run once. From there the host may close
// or reopen the session, which a caller notices by isOpen of its own opening.
class Line {
 public:
  explicit Line(ThreadState& thread) : thread_(thread), pauses_(thread.clock(), thread.sleep()) {}
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  // Owns the stream from now on; the one before must be closed.
  void attach(std::shared_ptr<Transport> transport);
  // Closes the stream, if there is one.
  void close();
  [[nodiscard]] const OpeningRef& opening() const { return opening_; }
  [[nodiscard]] bool isOpen(const OpeningRef& opening) const {
    return opening && opening_ == opening;
  }

  // Runs the host's message loop, then appends what is there.
  Look look(const OpeningRef& opening, std::string& bytes);
  // Takes off the line what is waiting; the line is not settled then.
  [[nodiscard]] std::string discard(Opening& opening);
  // Writes, then runs the host's message loop; the line is not settled then. The count of bytes
  // written; -1 on failure, also where the opening is not this line's any more.
  std::int32_t write(const OpeningRef& opening, std::string_view bytes);
  // As write, but a failure is tried again until it has passed, or the device counts as lost.
  Look writeSurely(const OpeningRef& opening, std::string_view bytes);

  // Whether a quit message waited for the host when its message loop last ran.
  [[nodiscard]] bool isQuitting() const { return isQuitting_; }
  [[nodiscard]] Pauses& pauses() { return pauses_; }

  // Whether the host's code runs now, in the middle of a wait or a write. A member that the host
  // calls from there and that may use the line says so for as long as it lasts.
  [[nodiscard]] bool hostRuns() const { return hostRuns_; }
  bool setHostRuns(bool runs) { return std::exchange(hostRuns_, runs); }

 private:
  void runHost();
  Look noteFailure(Opening& opening);

  ThreadState& thread_;
  Pauses pauses_;
  OpeningRef opening_;
  bool hostRuns_ = false;
  bool isQuitting_ = false;
};

}  // namespace corvid
