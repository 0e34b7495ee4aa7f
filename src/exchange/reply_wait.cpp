#include "exchange/reply_wait.h"

#include "basic/format.h"
#include "protocol/control_bytes.h"
#include "protocol/framing.h"

#include <utility>

namespace corvid {

ReplyWait::ReplyWait(ThreadState& thread, Line& line, OpeningRef opening, Outcome& outcome,
                     const WaitTerms& terms, const TimeOut& timeOut)
    : thread_(thread),
      trace_(thread.trace()),
      line_(line),
      opening_(std::move(opening)),
      outcome_(outcome),
      terms_(terms),
      timeOut_(timeOut) {}

WaitEnd ReplyWait::run() {
  outcome_.result.clear();
  trace_.traceWith([&] {
    return L"WaitForReply t = " + toText(timeOut_.start(), thread_.locale()) + L"; timeout = " +
           toText(timeOut_.seconds(), Locale{});
  });
  Pauses::Wait pauses(line_.pauses());
  for (;;) {
    // A look may take its time, and what came in time counts: one more look after the end.
    const bool isLast = isOver();
    std::optional<ReplyEvent> event = nextEvent(pauses);
    if (gone_) return *gone_;
    if (event) {
      if (const std::optional<WaitEnd> end = conclude(*event)) {
        dropRest();
        return *end;
      }
    }
    if (isLast && isOver()) {
      trace_.traceWith([] { return L"TIMEOUT!"; });
      return WaitEnd::TimeOut;
    }
    if (!event) pauses.pause();
  }
}

std::optional<ReplyEvent> ReplyWait::nextEvent(Pauses::Wait& pauses) {
  const bool hadRest = !pending_.empty();  // after an event that did not end the wait
  if (std::optional<ReplyEvent> event = decodePending()) return event;
  std::string gathered;
  std::optional<ReplyEvent> event = gather(pauses, gathered);
  if (!gathered.empty()) trace_.traceWith([&] { return L"<-" + escaped(gathered); });
  if (!event && (hadRest || !gathered.empty())) showCollected(decoder_.collected(), false);
  return event;
}

std::optional<ReplyEvent> ReplyWait::decodePending() {
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    if (std::optional<ReplyEvent> event = decoder_.take(pending_[i])) {
      pending_.erase(0, i + 1);
      return event;
    }
  }
  pending_.clear();
  return std::nullopt;
}

// Looks at the line until an event, quiet, or, where nothing has come, the first look's end.
std::optional<ReplyEvent> ReplyWait::gather(Pauses::Wait& pauses, std::string& gathered) {
  for (;;) {
    const Look look = line_.look(opening_, pending_);
    if (look == Look::Closed) gone_ = WaitEnd::Closed;
    if (look == Look::Lost) gone_ = WaitEnd::Lost;
    if (gone_) return std::nullopt;
    if (look == Look::Quiet) return decoder_.quiet();
    gathered += pending_;
    if (std::optional<ReplyEvent> event = decodePending()) return event;
    if (gathered.empty() || isOver()) return std::nullopt;
    pauses.pause();
  }
}

// Nothing where the wait goes on.
std::optional<WaitEnd> ReplyWait::conclude(ReplyEvent& event) {
  switch (event.kind) {
    case ReplyKind::Accepted:
      return concludeAnswer(WaitEnd::Accepted, ACK, L" <- ACK");
    case ReplyKind::Refused:
      return concludeAnswer(WaitEnd::Refused, NAK, L" <- NAK");
    case ReplyKind::Request:
      return acknowledgeRequest();
    default:
      return concludeBlock(event);
  }
}

WaitEnd ReplyWait::concludeAnswer(WaitEnd end, controlValues flag, const wchar_t* words) {
  trace_.traceWith([&] { return words; });
  outcome_.result.clear();
  outcome_.resultFlag = flag;
  return end;
}

// Discards nothing: after an ENQ the answer itself may be waiting already.
std::optional<WaitEnd> ReplyWait::acknowledgeRequest() {
  trace_.traceWith([] { return L" <- ENQ"; });
  const Look written = line_.writeSurely(opening_, std::string(1, ACK));
  if (written == Look::Closed) return WaitEnd::Closed;
  if (written == Look::Lost) return WaitEnd::Lost;
  trace_.traceWith([] { return L" -> ACK"; });
  showCollected(decoder_.collected(), false);
  return std::nullopt;
}

std::optional<WaitEnd> ReplyWait::concludeBlock(ReplyEvent& event) {
  traceCheckByte(event);
  // Before its kind: noise can make a status look like something else.
  if (terms_.verifies && event.check != CheckByte::Right) {
    showCollected(event.collected, false);
    return WaitEnd::Damaged;
  }
  if (terms_.forStatus ? !event.isStatus() : isLateStatus(event)) {
    trace_.traceWith([&] { return L"Dropped: <-" + escaped(event.collected); });
    outcome_.result.clear();
    return std::nullopt;
  }
  outcome_.resultFlag = event.endFlag();
  showCollected(event.collected, true);
  block_ = std::move(event);
  return WaitEnd::Block;
}

// The answer to a status request that was not answered in time.
bool ReplyWait::isLateStatus(const ReplyEvent& event) {
  if (opening_->statusesDue == 0 || !event.isStatus()) return false;
  --opening_->statusesDue;
  return true;
}

void ReplyWait::traceCheckByte(const ReplyEvent& event) {
  if (event.check == CheckByte::Wrong) trace_.traceWith([] { return L"Wrong check byte"; });
  if (event.check == CheckByte::Missing) trace_.traceWith([] { return L"No check byte"; });
}

void ReplyWait::showCollected(std::string_view bytes, bool isReady) {
  outcome_.result = thread_.codePage().decode(bytes);
  trace_.traceWith([&] {
    return L"WaitForReply (ready = " + toText(isReady) + L"): <-" + EscapeString(outcome_.result);
  });
}

// What came after the answer belongs to nobody, and more of it may be under way.
void ReplyWait::dropRest() {
  const std::string rest = decoder_.collected() + pending_;
  if (rest.empty()) return;
  tookAll_ = false;
  trace_.traceWith([&] { return L"Discarded: <-" + escaped(rest); });
}

// A reply that is whole but for its check byte is not thrown away; quiet follows soon. A program
// that quits does not wait for midnight's clock.
bool ReplyWait::isOver() const {
  if (decoder_.awaitsCheckByte()) return false;
  return line_.isQuitting() ? timeOut_.isOverBySteadyClock() : timeOut_.isOver();
}

std::wstring ReplyWait::escaped(std::string_view bytes) const {
  return EscapeString(thread_.codePage().decode(bytes));
}

}  // namespace corvid
