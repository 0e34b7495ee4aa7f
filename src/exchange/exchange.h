// The exchange engine: status request, framed command, wait for the reply, re-send.
#pragma once

#include "basic/text.h"
#include "exchange/exchange_state.h"
#include "exchange/process_state.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvid {

// The one field of a reply that failed; no other reply is this text.
inline constexpr const wchar_t* kFailedReply = L"pfError";

// Leaves every outcome in its state. All waits poll the clock and the port; each read and write
// lets the host run once. A host that closes the session from there ends the exchange with
// pfCommError and "PUERTO CERRADO".
class Exchange {
 public:
  explicit Exchange(ProcessState& process) : process_(process) {}
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  [[nodiscard]] ExchangeState& state() { return state_; }
  [[nodiscard]] Outcome& outcome() { return state_.outcome; }
  [[nodiscard]] const Outcome& outcome() const { return state_.outcome; }
  [[nodiscard]] ProcessState& process() { return process_; }
  // Test mode or unchecked mode: queries give substitute records.
  [[nodiscard]] bool answersWithSubstitutes() const { return state_.testMode || state_.skipChecks; }

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
  // Writes ACK, reads nothing and returns no field; subscript out of range (9) without a port.
  Lines NextStatusBlock();

  // The reply's fields; the one field "pfError" when the exchange failed, "Ok" in test mode, "VOID"
  // in unchecked mode, no field at all when the printer refused or merely acknowledged.
  [[nodiscard]] Lines GetResponse(const std::wstring& command);
  // Every field with the separator before it (also the first); empty means line feed.
  [[nodiscard]] std::wstring GetResponseString(const std::wstring& command,
                                               const std::wstring& separator);
  // One row per block; further blocks are acknowledged here. Ends at the first block that did not
  // arrive complete and keeps the rows so far.
  [[nodiscard]] std::vector<Lines> GetMultipleResponses(const std::wstring& command);
  // Rows and their fields joined; separators stand between neighbours only. Missing ones are US
  // between fields and RS between rows.
  [[nodiscard]] std::wstring GetMultipleResponsesStr(const std::wstring& command,
                                                     const std::optional<std::wstring>& itemSep,
                                                     const std::optional<std::wstring>& rowSep);

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

  // Acknowledges a block that ended with ETB and waits for the next one. False when that did not
  // come complete.
  bool receiveNextBlock();
  // The last request was answered with a complete block, and more blocks follow it.
  [[nodiscard]] bool moreBlocksFollow() const;
  [[nodiscard]] Lines fieldsOfResult();
  // Adds a line to the preview that stands in for the printer.
  void addToPreview(const std::wstring& line);
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
  void trace(const std::wstring& message) { process_.trace().Trace(message); }

  ProcessState& process_;
  ExchangeState state_;
  std::uint32_t opening_ = 0;  // state_.openings when the current request began
};

}  // namespace corvid
