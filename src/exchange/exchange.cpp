#include "exchange/exchange.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "protocol/framing.h"

#include <optional>
#include <utility>

namespace corvid {
namespace {

constexpr int kMostBlocksSent = 7;  // one command is written at most this often
constexpr std::int32_t kReadSize = 4096;
// Most answers begin within this time; a wait beyond it looks at the line less often.
constexpr float kPromptSeconds = 0.25F;

struct ReplyEnd {
  std::size_t position;
  controlValues flag;
};

// The byte behind an ETB is that block's check byte, even when it looks like an ETX.
std::size_t findEtx(const std::wstring& chunk) {
  std::size_t position = chunk.find(static_cast<wchar_t>(ETX));
  while (position != std::wstring::npos && position > 0 && chunk[position - 1] == ETB) {
    position = chunk.find(static_cast<wchar_t>(ETX), position + 1);
  }
  return position;
}

std::optional<ReplyEnd> findEnd(const std::wstring& chunk) {
  const std::size_t etx = findEtx(chunk);
  if (etx != std::wstring::npos) return ReplyEnd{etx, ETX};
  const std::size_t etb = chunk.find(static_cast<wchar_t>(ETB));
  if (etb != std::wstring::npos) return ReplyEnd{etb, ETB};
  const std::size_t eot = chunk.find(static_cast<wchar_t>(EOT));
  if (eot != std::wstring::npos) return ReplyEnd{eot, ETX};
  return std::nullopt;
}

bool startsWith(const std::wstring& chunk, controlValues control) {
  return !chunk.empty() && chunk.front() == static_cast<wchar_t>(control);
}

}  // namespace

std::int16_t Exchange::Execute(const std::wstring& command) {
  trace(L"Execute: -> " + EscapeString(command));
  if (state_.testMode) {
    addToPreview(command);
    return narrowToInt16(state_.outcome.pfError);
  }
  if (!hasPort()) {
    setPortClosed();
    return pfCommError;
  }
  const Request request(*this);
  int attempts = kMostBlocksSent;
  bool done = false;
  do {
    if (!requestStatus()) break;
    if (state_.outcome.pfError != pfOk) continue;
    if (sendUntilAccepted(command, attempts) == Wait::PortGone) break;
    done = state_.outcome.pfError == pfOk;
  } while (!done && attempts > 0);
  return narrowToInt16(state_.outcome.pfError);
}

Exchange::Wait Exchange::sendUntilAccepted(const std::wstring& command, int& attempts) {
  Wait wait = Wait::Nak;
  while (wait == Wait::Nak && attempts != 0) {
    --attempts;
    wait = sendBlock(command);
  }
  return wait;
}

Exchange::Wait Exchange::sendBlock(const std::wstring& command) {
  if (!isStillOpen()) {
    setPortClosed();
    return Wait::PortGone;
  }
  const std::wstring data = block(command);
  trace(L"SEND -> " + EscapeString(data));
  const std::int32_t written = write(data);
  if (written != static_cast<std::int32_t>(data.size())) {
    trace(L"bytesWritten = " + std::to_wstring(written) + L"; Expected = " +
          std::to_wstring(data.size()));
  }
  return WaitForReply();
}

void Exchange::ExecuteNoCheck(const std::wstring& command) {
  trace(L"ExecuteNoCheck: -> " + EscapeString(command));
  if (state_.testMode) return addToPreview(command);
  if (!hasPort()) return setPortClosed();
  write(block(command));
}

void Exchange::SendDirect(const std::wstring& command) {
  if (state_.testMode) return addToPreview(L"SendDirect: " + EscapeString(command));
  const std::wstring data = block(command);
  trace(L"SendDirect: -> " + EscapeString(command));
  write(data);
}

void Exchange::SendAck() {
  trace(L"SendAck: -> [ACK]");
  if (state_.testMode) return;
  const Request request(*this);
  write(std::wstring(1, ACK));
  WaitForReply();
}

Lines Exchange::NextStatusBlock() {
  if (!state_.testMode) write(std::wstring(1, ACK));
  return {};
}

void Exchange::GetStatus() {
  const Request request(*this);
  requestStatus();
}

// False when there is no port to ask through; a printer that stays silent is an outcome.
bool Exchange::requestStatus() {
  Outcome& outcome = state_.outcome;
  outcome.result.clear();
  outcome.pfError = pfOk;
  outcome.STS1 = 0;
  outcome.STS2 = 0;
  state_.ready = false;
  if (state_.testMode || state_.skipChecks) return true;
  if (!hasPort()) {
    setPortClosed();
    return false;
  }

  trace(L"GetStatus: -> [ENQ]");
  const bool asked = awaitStatus();
  trace(L"GetStatus: <- pfError = " + std::to_wstring(outcome.pfError) + L"; resultFlag = " +
        std::to_wstring(outcome.resultFlag) + L", STS1=" + toHex(outcome.STS1) + L", STS2= " +
        toHex(outcome.STS2));
  return asked;
}

bool Exchange::awaitStatus() {
  if (write(std::wstring(1, ENQ)) != 1) {
    setOutcome(pfCommError, L"pfError de comunicacion");
    return false;
  }
  const Wait wait = WaitForReply();
  if (wait == Wait::PortGone) return false;
  if (state_.ready) {
    decodeStatus();
  } else {
    state_.outcome.pfError = pfCommError;
  }
  return true;
}

void Exchange::decodeStatus() {
  Outcome& outcome = state_.outcome;
  if (outcome.result.size() >= 3) {
    outcome.STS1 = process_.codePage().toByte(outcome.result[1]);
    outcome.STS2 = process_.codePage().toByte(outcome.result[2]);
  }
  outcome.result.clear();
}

bool Exchange::receiveNextBlock() {
  const Request request(*this);
  state_.outcome.result.clear();
  trace(L" -> ACK");
  if (!isStillOpen()) {
    setPortClosed();
    return false;
  }
  write(std::wstring(1, ACK));
  return WaitForReply() == Wait::Block;
}

bool Exchange::moreBlocksFollow() const { return state_.ready && state_.outcome.resultFlag == ETB; }

Exchange::Wait Exchange::WaitForReply() {
  if (state_.skipChecks) {
    setOutcome(pfOk, L"NO_STATUS_CHECK");
    state_.outcome.resultFlag = ACK;
    return Wait::Skipped;
  }
  try {
    return collectReply();
  } catch (const RunTimeError& error) {
    process_.dialog().show(L"Error " + std::to_wstring(error.number()) + L" (" +
                               error.description() +
                               L") in procedure WaitForReply of Módulo de clase PrinterFiscal",
                           L"", MessageIcon::None);
    return Wait::Failed;
  }
}

Exchange::Wait Exchange::collectReply() {
  Clock& clock = process_.clock();
  state_.outcome.result.clear();
  const float start = clock.secondsSinceMidnight();
  trace(L"WaitForReply t = " + toText(start, process_.locale()) + L"; timeout = " +
        std::to_wstring(state_.timeOut));
  state_.ready = false;
  do {
    if (!isStillOpen()) {
      setPortClosed();
      return Wait::PortGone;
    }
    std::wstring chunk;
    const double waited = clock.secondsSinceMidnight() - start;
    const double patience = state_.timeOut - waited;
    const bool came = process_.comm().CommRead(state_.port, chunk, kReadSize, patience) > 0;
    if (came) {
      const Chunk kind = takeChunk(chunk);
      if (kind == Chunk::Nak) return Wait::Nak;
      if (kind == Chunk::Ack) return Wait::Ack;
    }
    // Not corrected for midnight: a wait across it goes on until a reply completes.
    if (clock.secondsSinceMidnight() - start >= static_cast<float>(state_.timeOut)) {
      if (!state_.ready) trace(L"TIMEOUT!");
      break;
    }
    if (!came) restSince(start);
  } while (!state_.ready);
  return concludeWait();
}

void Exchange::restSince(float start) {
  Clock& clock = process_.clock();
  if (clock.secondsSinceMidnight() - start < kPromptSeconds) {
    clock.rest();
  } else {
    clock.restLonger();
  }
}

Exchange::Wait Exchange::concludeWait() {
  trace(L"ResponseComplete: " + EscapeString(state_.outcome.result));
  if (state_.ready) {
    setOutcome(pfOk, L"Ok");
    return Wait::Block;
  }
  trace(L"WaitForReply Failed... COMM ERROR?");
  setOutcome(pfCommError, L"pfError de comunicacion");
  return Wait::TimeOut;
}

Exchange::Chunk Exchange::takeChunk(std::wstring chunk) {
  trace(L"<-" + EscapeString(chunk));
  dropStatusRequests(chunk);
  if (startsWith(chunk, NAK)) {
    trace(L" <- NAK");
    state_.outcome.resultFlag = NAK;
    return Chunk::Nak;
  }
  if (startsWith(chunk, ACK)) {
    trace(L" <- ACK");
    state_.outcome.resultFlag = ACK;
    return Chunk::Ack;
  }
  appendToResult(std::move(chunk));
  return Chunk::Reply;
}

void Exchange::dropStatusRequests(std::wstring& chunk) {
  while (startsWith(chunk, ENQ)) {
    trace(L" <- ENQ");
    // Not by write: behind an ENQ the answer itself may be waiting already.
    if (hasPort()) process_.comm().CommWrite(state_.port, std::wstring(1, ACK));
    trace(L" -> ACK");
    chunk.erase(0, 1);
  }
}

void Exchange::appendToResult(std::wstring chunk) {
  if (const std::optional<ReplyEnd> end = findEnd(chunk)) {
    chunk.resize(end->position + 1);
    state_.outcome.resultFlag = end->flag;
    state_.ready = true;
  }
  state_.outcome.result += chunk;
  trace(L"WaitForReply (ready = " + toText(state_.ready) + L"): <-" +
        EscapeString(state_.outcome.result));
}

// Raises as the port table does where the session has no port; another session may hold a port of
// the number that a failed Abrir left.
std::int32_t Exchange::write(const std::wstring& data) {
  if (!hasPort()) throw subscriptOutOfRange();
  const std::wstring late = process_.comm().CommDiscard(state_.port);
  if (!late.empty()) trace(L"Discarded: <-" + EscapeString(late));
  return process_.comm().CommWrite(state_.port, data);
}

std::wstring Exchange::block(const std::wstring& command) const {
  return BuildCommandBlock(command, process_.codePage());
}

void Exchange::addToPreview(const std::wstring& line) {
  if (!state_.preview.isMade()) state_.preview.make(process_.views());
  state_.preview.Add(line);
}

void Exchange::setPortClosed() { setOutcome(pfCommError, L"PUERTO CERRADO"); }

void Exchange::setOutcome(pfErrors error, const wchar_t* description) {
  state_.outcome.pfError = error;
  state_.outcome.DescripcionError = description;
}

}  // namespace corvid
