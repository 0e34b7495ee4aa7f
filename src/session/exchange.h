// The exchange engine: status request, framed command, wait for the reply, re-send.
#pragma once

#include "session/library.h"
#include "session/session_state.h"

#include <cstdint>
#include <string>
#include <utility>

namespace corvid {

// Works on the state of one session and leaves every outcome there. All waits poll the clock and
// the port; each read and write lets the host run once. A host that closes the session from there
// ends the exchange with pfCommError and "PUERTO CERRADO".
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
  // Writes ACK and waits for a reply; subscript out of range (9) without a port.
  void SendAck();
  // Writes ENQ and decodes STS1 and STS2 from the reply. A request that cannot be written is not
  // waited for.
  void GetStatus();
  // Writes ACK; reads nothing; subscript out of range (9) without a port.
  void NextStatusBlock();

  // Acknowledges a block that ended with ETB and waits for the next one. False when that did not
  // come complete.
  bool receiveNextBlock();
  // The last request was answered with a complete block, and more blocks follow it.
  [[nodiscard]] bool moreBlocksFollow() const;
  // Adds a line to the preview that stands in for the printer.
  void addToPreview(const std::wstring& line);

 private:
  enum class Wait { Block, Ack, Nak, TimeOut, Skipped, PortGone, Failed };
  enum class Chunk { Ack, Nak, Reply };

  // Lasts as long as one request. A host that runs meanwhile may make requests of its own.
  class Request {
   public:
    explicit Request(Exchange& exchange)
        : exchange_(exchange), outer_(std::exchange(exchange.opening_, exchange.state_.openings)) {}
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;
    ~Request() { exchange_.opening_ = outer_; }

   private:
    Exchange& exchange_;
    std::uint32_t outer_;
  };

  Wait WaitForReply();
  Wait collectReply();
  Chunk takeChunk(std::wstring chunk);
  void dropStatusRequests(std::wstring& chunk);
  void appendToResult(std::wstring chunk);
  void restSince(float start);
  Wait concludeWait();
  Wait sendBlock(const std::wstring& command);
  Wait sendUntilAccepted(const std::wstring& command, int& attempts);
  bool requestStatus();
  bool awaitStatus();
  void decodeStatus();
  std::int32_t write(const std::wstring& data);
  void setPortClosed();
  void setOutcome(pfErrors error, const wchar_t* description);
  [[nodiscard]] bool hasPort() const { return state_.port != 0 && state_.ownsPort; }
  // The host has neither closed nor reopened the port since the request began.
  [[nodiscard]] bool isStillOpen() const { return hasPort() && state_.openings == opening_; }
  [[nodiscard]] std::wstring block(const std::wstring& command) const;
  void trace(const std::wstring& message) { library_.trace().Trace(message); }

  Library& library_;
  SessionState& state_;
  std::uint32_t opening_ = 0;  // state_.openings when the current request began
};

}  // namespace corvid
