#include "tools/diagnostico/measured_transport.h"

#include <algorithm>

namespace corvid {

namespace {

constexpr std::string_view kGoAhead = "\x06";

}  // namespace

bool isHarmless(std::string_view bytes) {
  return bytes == "\x05" || bytes == kGoAhead || bytes == "\x02S1\x03\x61";
}

std::int32_t MeasuredTransport::read(std::string& bytes) {
  const std::int32_t count = inner_->read(bytes);
  if (count <= 0) return count;
  const double since = clock_.monotonicSeconds() - written_;
  if (arrival_.reads == 0) {
    arrival_.first = since;
  } else {
    arrival_.longestPause = std::max(arrival_.longestPause, since - arrival_.last);
  }
  arrival_.last = since;
  arrival_.bytes += static_cast<std::size_t>(count);
  ++arrival_.reads;
  return count;
}

std::int32_t MeasuredTransport::write(std::string_view bytes) {
  if (!isHarmless(bytes)) return -1;
  // A go-ahead belongs to the question that is under way.
  if (bytes != kGoAhead) {
    // Before the write: what the answer needs includes the way there.
    written_ = clock_.monotonicSeconds();
    arrival_ = {};
  }
  return inner_->write(bytes);
}

}  // namespace corvid
