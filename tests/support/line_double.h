// What doubles of serial lines and of connections share.
#pragma once

#include "support/call_faults.h"
#include "support/fake_clock.h"
#include "support/line_peer.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <map>
#include <string>

namespace corvid {

// A line, or one way of a connection: what the far end sent and nobody has read.
struct Incoming {
  struct Arriving {
    char byte;
    double due;
  };
  std::deque<Arriving> bytes;
  double free = 0;  // when the last byte on its way has come
};

// The calls of a seam over open handles, each with its Line (an Incoming with more).
template <class Calls, class Handle, class Line>
class LineDouble : public Calls, public NearEnd {
 public:
  LineDouble(FakeClock& clock, CallFaults& faults) : clock_(clock), faults_(faults) {}

  using NearEnd::deliver;
  [[nodiscard]] std::size_t unread() const override {
    std::size_t count = 0;
    for (const auto& [handle, line] : open_) count += line.bytes.size();
    return count;
  }
  std::uint32_t lastError() override { return lastError_; }
  std::wstring errorMessage(std::uint32_t number) override {
    return L"system message " + std::to_wstring(number);
  }

 protected:
  bool failWith(std::uint32_t error) {
    lastError_ = error;
    return false;
  }
  // As the system does, which gives the number of a closed one to the next.
  [[nodiscard]] Handle freeHandle() const {
    Handle handle = 100;
    while (open_.contains(handle)) ++handle;
    return handle;
  }
  // Times are sums of fractions: what is due to the microsecond is due.
  [[nodiscard]] std::uint32_t countDue(const Line& line) const {
    const double now = clock_.total() + 1e-6;
    const auto isLater = [&](const Incoming::Arriving& one) { return one.due > now; };
    return static_cast<std::uint32_t>(std::ranges::find_if(line.bytes, isLater) -
                                      line.bytes.begin());
  }
  std::uint32_t takeDue(Line& line, char* buffer, std::uint32_t size) {
    const std::uint32_t count = std::min(size, countDue(line));
    for (std::uint32_t i = 0; i < count; ++i) {
      buffer[i] = line.bytes.front().byte;
      line.bytes.pop_front();
    }
    return count;
  }

  FakeClock& clock_;
  CallFaults& faults_;
  LinePeer* peer_ = nullptr;
  std::map<Handle, Line> open_;
  Handle current_{};  // where the next bytes are sent
  std::uint32_t lastError_ = 0;
};

}  // namespace corvid
