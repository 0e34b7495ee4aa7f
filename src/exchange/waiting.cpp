// Waits: for an answer, and for the line to fall quiet.
#include "exchange/exchange.h"
#include "protocol/framing.h"

#include <utility>

namespace corvid {

WaitEnd Exchange::WaitForReply(bool forStatus) {
  block_.reset();
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
  ReplyWait wait(process_, line_, opening, state_.outcome,
                 {.forStatus = forStatus,
                  .verifies = state_.verificarRespuesta,
                  .seconds = waitSeconds(),
                  .deadline = member_.deadline});
  const WaitEnd end = wait.run();
  if (end == WaitEnd::Block) block_ = std::move(wait.block());
  const bool isAnswer = end == WaitEnd::Block ||
                        (!forStatus && (end == WaitEnd::Accepted || end == WaitEnd::Refused));
  if (!isAnswer) opening->isSettled = false;
  return concludeWait(end);
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
  Clock& clock = process_.clock();
  const float start = clock.secondsSinceMidnight();
  Pauses::Wait pauses(line_.pauses());
  for (;;) {
    std::string late;
    const Look look = line_.look(opening, late);
    traceDiscarded(late);
    switch (look) {
      case Look::Quiet:
        opening->isSettled = true;
        return look;
      case Look::Closed:
        setPortClosed();
        return look;
      case Look::Lost:
        setSilent();
        return look;
      default:
        break;
    }
    if (clock.secondsSinceMidnight() - start >= waitSeconds() || isPastLimit()) {
      setSilent();
      return Look::Nothing;
    }
    pauses.pause();
  }
}

// A late answer is not read as the next one's.
void Exchange::discardLate() { traceDiscarded(line_.discard(*member_.opening)); }

void Exchange::traceDiscarded(const std::string& late) {
  if (late.empty()) return;
  trace([&] { return L"Discarded: <-" + EscapeString(process_.codePage().decode(late)); });
}

}  // namespace corvid
