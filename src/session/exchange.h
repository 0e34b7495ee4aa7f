// The exchange engine: status request, framed command, wait for the reply, re-send.
#pragma once

#include <cstdint>
#include <string>

#include "session/library.h"
#include "session/session_state.h"

namespace corvid {

// Works on the state of one session and leaves every outcome there. All waits poll the clock and
// the port; each read and write lets the host run once.
class Exchange {
 public:
  Exchange(Library& library, SessionState& state) : library_(library), state_(state) {}

  // Full checked exchange; returns pfError. A silent printer is asked for its status for as long
  // as it stays silent; a port that is not there ends the exchange. Seven refusals end it with
  // the status request's pfError and resultFlag NAK.
  std::int16_t Execute(const std::wstring& command);
  // Frames and writes, no status, no wait.
  void ExecuteNoCheck(const std::wstring& command);
  // As ExecuteNoCheck, but with the outcome untouched; subscript out of range (9) without a port.
  void SendDirect(const std::wstring& command);
  // Writes ACK and waits for a reply.
  void SendAck();
  // Writes ENQ and decodes STS1 and STS2 from the reply.
  void GetStatus();
  // Writes ACK; reads nothing. Returns no lines.
  void NextStatusBlock();

  // Acknowledges a block and waits for the next one. False when none came complete.
  bool receiveNextBlock();
  // The last wait of this exchange ended with a complete reply block.
  [[nodiscard]] bool sawBlock() const { return state_.ready; }

  void trace(const std::wstring& message) { library_.trace().Trace(message); }

 private:
  enum class Wait { Block, Ack, Nak, TimeOut, Skipped, PortGone, Failed };

  Wait WaitForReply();
  Wait collectReply();
  Wait takeChunk(std::wstring chunk);
  void reportWait(Wait wait);
  bool sendBlock(const std::wstring& command);
  bool requestStatus();
  void decodeStatus();
  std::int32_t write(const std::wstring& data);
  [[nodiscard]] bool portIsThere() const;
  void setOutcome(pfErrors error, const std::wstring& description);

  Library& library_;
  SessionState& state_;
};

}  // namespace corvid
