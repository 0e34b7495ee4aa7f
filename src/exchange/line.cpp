#include "exchange/line.h"

namespace corvid {
namespace {

constexpr double kQuietSeconds = 0.06;  // many byte times even at 1200 baud
constexpr int kFailuresOfALoss = 3;
constexpr double kLossSeconds = 0.1;

}  // namespace

void Line::attach(std::shared_ptr<Transport> transport) {
  opening_ = std::make_shared<Opening>();
  opening_->transport = std::move(transport);
  opening_->lastTaken = thread_.clock().monotonicSeconds();
}

void Line::close() {
  if (const OpeningRef closed = std::exchange(opening_, nullptr)) closed->transport->close();
}

void Line::runHost() {
  const bool before = setHostRuns(true);
  isQuitting_ = thread_.pump().yield();
  setHostRuns(before);
}

Look Line::look(const OpeningRef& opening, std::string& bytes) {
  runHost();
  if (!isOpen(opening)) return Look::Closed;
  Clock& clock = thread_.clock();
  const double now = clock.monotonicSeconds();
  const std::int32_t count = opening->transport->read(bytes);
  if (count < 0) return noteFailure(*opening);
  opening->failuresInARow = 0;
  if (count == 0) return now - opening->lastTaken < kQuietSeconds ? Look::Nothing : Look::Quiet;
  // A read may take its time: what it gave came before its end.
  opening->lastTaken = clock.monotonicSeconds();
  return Look::Bytes;
}

Look Line::noteFailure(Opening& opening) {
  const double now = thread_.clock().monotonicSeconds();
  if (opening.failuresInARow++ == 0) opening.firstFailure = now;
  const bool isLost =
      opening.failuresInARow >= kFailuresOfALoss && now - opening.firstFailure >= kLossSeconds;
  return isLost ? Look::Lost : Look::Failed;
}

std::string Line::discard(Opening& opening) {
  std::string late = opening.transport->discard();
  if (!late.empty()) {
    opening.isSettled = false;
    opening.lastTaken = thread_.clock().monotonicSeconds();
  }
  return late;
}

std::int32_t Line::write(const OpeningRef& opening, std::string_view bytes) {
  if (!isOpen(opening)) return -1;
  opening->isSettled = false;
  const std::int32_t count = opening->transport->write(bytes);
  runHost();
  return count;
}

Look Line::writeSurely(const OpeningRef& opening, std::string_view bytes) {
  Pauses::Wait pauses(pauses_);
  for (;;) {
    const std::int32_t count = write(opening, bytes);
    if (!isOpen(opening)) return Look::Closed;
    if (count == static_cast<std::int32_t>(bytes.size())) return Look::Nothing;
    if (noteFailure(*opening) == Look::Lost) return Look::Lost;
    pauses.pause();
  }
}

}  // namespace corvid
