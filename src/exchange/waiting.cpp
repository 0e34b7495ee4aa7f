// Waits: for an answer, and for the line to fall quiet.
#include "exchange/exchange.h"
#include "protocol/framing.h"

#include <limits>
#include <utility>

namespace corvid {
namespace {

constexpr double kNoEnd = std::numeric_limits<double>::infinity();

}  // namespace

WaitEnd Exchange::WaitForReply(bool forStatus) {
  member_.block.reset();
  if (state_.skipChecks) return waitWithoutChecks();
  try {
    return collectReply(forStatus);
  } catch (const RunTimeError& error) {
    tellFailure(error);
    return WaitEnd::TimeOut;
  }
}

WaitEnd Exchange::waitWithoutChecks() {
  setOutcome(pfOk, L"NO_STATUS_CHECK");
  state_.outcome.resultFlag = ACK;
  return WaitEnd::Accepted;
}

WaitEnd Exchange::collectReply(bool forStatus) {
  // The session may be reopened meanwhile; what becomes of this opening is noted here.
  const OpeningRef opening = member_.opening;
  const TimeOut timeOut(thread_.clock(), state_.timeOut, forStatus ? patience() : kNoEnd);
  ReplyWait wait(thread_, line_, opening, state_.outcome,
                 {.forStatus = forStatus, .verifies = state_.verificarRespuesta}, timeOut);
  const WaitEnd end = wait.run();
  if (end == WaitEnd::Block) member_.block = std::move(wait.block());
  const bool isAnswered = end == WaitEnd::Block ||
                          (!forStatus && (end == WaitEnd::Accepted || end == WaitEnd::Refused));
  opening->isSettled = isAnswered && wait.tookAll();
  if (isAnswered && !forStatus) opening->statusesDue = 0;
  if (!isAnswered) noteSilence(forStatus, timeOut.elapsedSeconds());
  if (end == WaitEnd::Lost) member_.gaveUp = true;
  return concludeWait(end);
}

double Exchange::patience() const {
  return state_.limiteEspera > 0 ? state_.limiteEspera - member_.silentSeconds : kNoEnd;
}

// After a wait without answer.
void Exchange::noteSilence(bool forStatus, double seconds) {
  member_.silentSeconds += seconds;
  if (line_.isQuitting() || (forStatus && patience() <= 0)) member_.gaveUp = true;
}

WaitEnd Exchange::concludeWait(WaitEnd end) {
  if (end == WaitEnd::Accepted || end == WaitEnd::Refused) return end;
  if (end == WaitEnd::Closed) {
    setPortClosed();
    return end;
  }
  trace([&] { return L"ResponseComplete: " + EscapeString(state_.outcome.result); });
  if (end == WaitEnd::Block) {
    setOutcome(pfOk, L"Ok");
  } else {
    trace([] { return L"WaitForReply Failed... COMM ERROR?"; });
    setSilent();
  }
  return end;
}

void Exchange::tellFailure(const RunTimeError& error) {
  const bool before = line_.setHostRuns(true);
  dialog().show(L"Error " + std::to_wstring(error.number()) + L" (" + error.description() +
                    L") in procedure WaitForReply of M\u00F3dulo de clase PrinterFiscal",
                L"", MessageIcon::None);
  line_.setHostRuns(before);
}

// Waits until no late answer is under way any more; else two statuses are, and the second one
// passes for a command's answer. Quiet when the line is; Nothing when it does not come to that
// within the time of a wait. The outcome is set for all but Quiet.
Look Exchange::settleLine() {
  const OpeningRef opening = member_.opening;
  discardLate();
  if (opening->isSettled) return Look::Quiet;
  const TimeOut timeOut(thread_.clock(), state_.timeOut, patience());
  Pauses::Wait pauses(line_.pauses());
  for (;;) {
    std::string late;
    const Look look = line_.look(opening, late);
    traceDiscarded(late);
    if (look == Look::Quiet) {
      member_.silentSeconds += timeOut.elapsedSeconds();
      return look;
    }
    if (!isUsable(look)) return look;
    if (timeOut.isOverBySteadyClock()) {
      noteSilence(true, timeOut.elapsedSeconds());
      setSilent();
      return Look::Nothing;
    }
    pauses.pause();
  }
}

// False, with the outcome set, where the port has gone.
bool Exchange::isUsable(Look look) {
  if (look == Look::Closed) setPortClosed();
  if (look == Look::Lost) {
    member_.gaveUp = true;
    setSilent();
  }
  return look != Look::Closed && look != Look::Lost;
}

// A late answer is not read as the next one's.
void Exchange::discardLate() { traceDiscarded(line_.discard(*member_.opening)); }

void Exchange::traceDiscarded(const std::string& late) {
  if (late.empty()) return;
  trace([&] { return L"Discarded: <-" + EscapeString(thread_.codePage().decode(late)); });
}

}  // namespace corvid
