#include "exchange/exchange.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "protocol/framing.h"

#include <utility>

namespace corvid {
namespace {

constexpr int kMostBlocksSent = 7;  // one command is written at most this often

}  // namespace

Exchange::Exchange(ThreadState& thread)
    : thread_(thread),
      settings_(thread.currentSettings()),
      tracedDialog_(thread.trace()),
      line_(thread) {}

std::int16_t Exchange::Execute(const std::wstring& command) {
  const Turn turn(*this, L"Execute");
  if (turn.isRefused()) return pfClientError;
  const auto progress = beginCommand();
  return runCommand(command);
}

std::int16_t Exchange::runCommand(const std::wstring& command) {
  trace([&] { return L"Execute: -> " + EscapeString(command); });
  if (state_.testMode) {
    addToPreview(command);
    return narrowToInt16(state_.outcome.pfError);
  }
  if (!isOpen()) {
    setPortClosed();
    return pfCommError;
  }
  int attempts = kMostBlocksSent;
  bool isOver = false;
  while (!isOver && requestStatus()) {
    if (state_.outcome.pfError != pfOk) continue;
    const Sent sent = sendUntilAccepted(command, attempts);
    isOver = sent == Sent::Over || state_.outcome.pfError == pfOk || attempts == 0;
  }
  return narrowToInt16(state_.outcome.pfError);
}

Exchange::Sent Exchange::sendUntilAccepted(const std::wstring& command, int& attempts) {
  Sent sent = Sent::Refused;
  while (sent == Sent::Refused && attempts != 0) {
    --attempts;
    sent = sendBlock(command);
  }
  if (sent == Sent::Refused && state_.rechazoEsError) {
    setOutcome(pfPrinterError, L"Se recibi\u00F3 NAK");
  }
  return sent;
}

// Nothing of the host has run since the status came: the port is open.
Exchange::Sent Exchange::sendBlock(const std::wstring& command) {
  const std::wstring block = BuildCommandBlock(command, thread_.codePage());
  trace([&] { return L"SEND -> " + EscapeString(block); });
  discardLate();
  const std::int32_t written = write(block);
  if (written != static_cast<std::int32_t>(block.size())) {
    trace([&] {
      return L"bytesWritten = " + std::to_wstring(written) + L"; Expected = " +
             std::to_wstring(block.size());
    });
  }
  if (written != 0) lastSend_.noteBlock();
  switch (WaitForReply(false)) {
    case WaitEnd::Block:
    case WaitEnd::Accepted:
      // In unchecked mode nobody looked.
      if (!state_.skipChecks) lastSend_.noteAnswer(true);
      return Sent::Accepted;
    case WaitEnd::Refused:
      lastSend_.noteAnswer(false);
      return Sent::Refused;
    case WaitEnd::Lost:
    case WaitEnd::Closed:
      return Sent::Over;
    default:
      return Sent::Unanswered;
  }
}

void Exchange::ExecuteNoCheck(const std::wstring& command) {
  trace([&] { return L"ExecuteNoCheck: -> " + EscapeString(command); });
  const Turn turn(*this, L"ExecuteNoCheck");
  if (turn.isRefused()) return;
  const auto progress = beginCommand();
  if (state_.testMode) return addToPreview(command);
  if (!isOpen()) return setPortClosed();
  discardLate();
  writeUnchecked(command);
}

void Exchange::SendDirect(const std::wstring& command) {
  if (!state_.testMode) trace([&] { return L"SendDirect: -> " + EscapeString(command); });
  const Turn turn(*this, L"SendDirect");
  if (turn.isRefused()) return;
  const auto progress = beginCommand();
  if (state_.testMode) return addToPreview(L"SendDirect: " + EscapeString(command));
  if (isOpen()) discardLate();
  writeUnchecked(command);
}

// What becomes of the block is not waited for.
void Exchange::writeUnchecked(const std::wstring& command) {
  if (write(BuildCommandBlock(command, thread_.codePage())) != 0) lastSend_.noteBlock();
}

void Exchange::SendAck() {
  trace([] { return L"SendAck: -> [ACK]"; });
  if (state_.testMode) return;
  const Turn turn(*this, L"SendAck");
  if (turn.isRefused()) return;
  write(kAcknowledge);
  WaitForReply(false);
}

Lines Exchange::NextStatusBlock() {
  if (state_.testMode) return {};
  const Turn turn(*this, L"NextStatusBlock");
  if (!turn.isRefused()) write(kAcknowledge);
  return {};
}

void Exchange::GetStatus() {
  const Turn turn(*this, L"GetStatus");
  if (turn.isRefused()) return;
  requestStatus();
}

// False where the printer was not asked: without a port, or where asking is no use any more. That
// it stays silent is an outcome.
bool Exchange::requestStatus() {
  if (isOpen() && (member_.gaveUp || patience() <= 0)) {
    setSilent();
    return false;
  }
  Outcome& outcome = state_.outcome;
  outcome.result.clear();
  outcome.pfError = pfOk;
  outcome.STS1 = 0;
  outcome.STS2 = 0;
  if (state_.testMode || state_.skipChecks) return true;
  if (!isOpen()) {
    setPortClosed();
    return false;
  }

  trace([] { return L"GetStatus: -> [ENQ]"; });
  const bool isAsked = awaitStatus();
  trace([&] {
    return L"GetStatus: <- pfError = " + std::to_wstring(outcome.pfError) + L"; resultFlag = " +
           std::to_wstring(outcome.resultFlag) + L", STS1=" + toHex(outcome.STS1) + L", STS2= " +
           toHex(outcome.STS2);
  });
  return isAsked;
}

bool Exchange::awaitStatus() {
  const Look line = settleLine();
  if (line != Look::Quiet) return line == Look::Nothing;
  const OpeningRef opening = member_.opening;
  const Look written = line_.writeSurely(opening, thread_.codePage().encode(kEnquiry));
  if (!isUsable(written)) return false;
  ++opening->statusesDue;
  const WaitEnd end = WaitForReply(true);
  if (end == WaitEnd::Closed || end == WaitEnd::Lost) return false;
  if (const std::optional<ReplyEvent> status = std::exchange(member_.block, std::nullopt)) {
    --opening->statusesDue;
    Outcome& outcome = state_.outcome;
    outcome.STS1 = status->statusByte(0);
    outcome.STS2 = status->statusByte(1);
    outcome.result.clear();
  } else {
    state_.outcome.pfError = pfCommError;
  }
  return true;
}

// Throws as the port table does where the session has no port; another session may hold a port of
// the number that a failed Abrir left.
std::int32_t Exchange::write(std::wstring_view text) {
  if (!isOpen()) throw subscriptOutOfRange();
  return line_.write(member_.opening, thread_.codePage().encode(text));
}

void Exchange::addToPreview(const std::wstring& line) {
  if (!state_.preview.isMade()) state_.preview.make(thread_.views(), settings_);
  state_.preview.Add(line);
  lastSend_.notePreviewed();
}

MessageDialog& Exchange::dialog() {
  if (state_.sinMensajes) return tracedDialog_;
  return thread_.dialog();
}

void Exchange::TracedDialog::show(const std::wstring& text, const std::wstring& title,
                                  MessageIcon) {
  trace_.traceWith([&] { return L"Message: " + (title.empty() ? text : title + L": " + text); });
}

void Exchange::setOutcome(pfErrors error, const wchar_t* description) {
  state_.outcome.pfError = error;
  state_.outcome.DescripcionError = description;
}

void Exchange::refuseCommand(pfErrors error, const std::wstring& description) {
  setOutcome(error, description.c_str());
  lastSend_.noteUnsent();
}

}  // namespace corvid
