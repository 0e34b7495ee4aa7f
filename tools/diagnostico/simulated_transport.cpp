#include "tools/diagnostico/simulated_transport.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr int kBaud = 9600;

}  // namespace

SimulatedTransport::SimulatedTransport(simulator::Printer& printer, Clock& clock)
    : printer_(printer), clock_(clock) {
  printer_.misbehaviour().setBaud(kBaud);
}

std::int32_t SimulatedTransport::open() {
  isOpen_ = true;
  return 0;
}

std::int32_t SimulatedTransport::close() {
  isOpen_ = false;
  arriving_.clear();
  return 0;
}

std::int32_t SimulatedTransport::read(std::string& bytes) {
  const std::size_t before = bytes.size();
  const double now = clock_.monotonicSeconds();
  while (!arriving_.empty() && arriving_.front().due <= now) {
    bytes += arriving_.front().bytes;
    arriving_.pop_front();
  }
  return static_cast<std::int32_t>(bytes.size() - before);
}

std::string SimulatedTransport::discard() {
  std::string bytes;
  read(bytes);
  return bytes;
}

std::int32_t SimulatedTransport::write(std::string_view bytes) {
  double due = clock_.monotonicSeconds();
  if (!arriving_.empty()) due = std::max(due, arriving_.back().due);
  for (const simulator::Chunk& chunk : printer_.receive(bytes)) {
    due += std::chrono::duration<double>(chunk.gap).count();
    arriving_.push_back({chunk.bytes, due});
  }
  return static_cast<std::int32_t>(bytes.size());
}

}  // namespace corvid
