// The exchange engine: status request, framed command, wait for the reply, re-send.
#pragma once

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "exchange/exchange_state.h"
#include "exchange/line.h"
#include "exchange/reply_wait.h"
#include "exchange/send_record.h"
#include "exchange/thread_state.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

// The one field of a reply that failed.
inline constexpr const wchar_t* kFailedReply = L"pfError";

// Leaves every outcome in its state. All waits poll the clock and the port, and let the host's
// message loop run between two looks. From there the host may
//   - close or reopen the session: the exchange ends with pfCommError and "PUERTO CERRADO";
//   - call a member that would use the line: it is refused (see Turn);
//   - quit: a silent printer is not asked for its status again, and nothing is repeated after a
//     time-out.
class Exchange {
 public:
  explicit Exchange(ThreadState& thread);
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  // What holds for one member of the session while it uses the line.
  struct Member {
    OpeningRef opening;        // of the port, when the member began
    double silentSeconds = 0;  // in waits of the command in progress that brought no answer
    bool gaveUp = false;       // asking is no use: quitting, no status within the limit, lost
    std::optional<ReplyEvent> block = {};  // what the last wait ended with, where that was a block
    std::uint32_t number = 0;              // of the turn
  };

  // A member's use of the line, from its first byte to its last. Every member that may touch the
  // port makes one on the stack before anything else, but for Abrir, which makes it when the port
  // is its own; members that it calls in turn share it, and with it the opening of the port that it
  // began with.
  class Turn {
   public:
    Turn(Exchange& exchange, std::wstring_view member);
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn();

    // True where the host called the member from a message handler while another one waits for the
    // printer or writes to it. The member then writes nothing, changes no public state and returns
    // its failure value; the trace tells.
    [[nodiscard]] bool isRefused() const { return isRefused_; }

   private:
    Exchange& exchange_;
    bool isRefused_;
    bool isShared_;  // with the member that called this one
    bool hostRan_ = false;
    std::optional<Member> outer_;
  };

  // Full checked exchange; returns pfError. A silent printer is asked for its status for as long
  // as it stays silent. With the setting "LimiteEspera", a command whose waits without answer have
  // lasted that many seconds ends; one that was written is awaited for "TimeOut" all the same, and
  // after no status within the limit the member sends nothing more. A port that is not there ends
  // the exchange. Seven refusals end it with the status request's pfError and resultFlag NAK, or,
  // by the setting "RechazoEsError", with pfPrinterError.
  std::int16_t Execute(const std::wstring& command);
  // Frames and writes, no status, no wait.
  void ExecuteNoCheck(const std::wstring& command);
  // As ExecuteNoCheck, but with the outcome untouched; subscript out of range (9) without a port.
  void SendDirect(const std::wstring& command);
  // Writes ACK and waits for a reply, which may be there already: what came before the ACK counts.
  // Subscript out of range (9) without a port.
  void SendAck();
  // Writes ENQ and decodes STS1 and STS2 from the reply.
  void GetStatus();
  // Writes ACK, reads nothing and returns no field; subscript out of range (9) without a port.
  Lines NextStatusBlock();

  // The reply's fields; the one field "pfError" when the exchange failed, "Ok" in test mode, "VOID"
  // in unchecked mode, no field at all when the printer refused or merely acknowledged.
  [[nodiscard]] Lines GetResponse(const std::wstring& command);
  // Every field with the separator before it (also the first); empty means line feed.
  [[nodiscard]] std::wstring GetResponseString(const std::wstring& command,
                                               const std::wstring& separator);
  // One row per block, at most 32,768; further blocks are acknowledged here. Ends at the first
  // block that did not arrive complete and keeps the rows so far.
  [[nodiscard]] std::vector<Lines> GetMultipleResponses(const std::wstring& command);
  // Rows and their fields joined; separators stand between neighbours only. Missing ones are US
  // between fields and RS between rows.
  [[nodiscard]] std::wstring GetMultipleResponsesStr(const std::wstring& command,
                                                     const std::optional<std::wstring>& itemSep,
                                                     const std::optional<std::wstring>& rowSep);

  [[nodiscard]] ExchangeState& state() { return state_; }
  [[nodiscard]] Outcome& outcome() { return state_.outcome; }
  [[nodiscard]] const Outcome& outcome() const { return state_.outcome; }
  [[nodiscard]] ThreadState& thread() { return thread_; }
  [[nodiscard]] const Settings& settings() const { return settings_; }
  // Test mode or unchecked mode: queries give substitute records.
  [[nodiscard]] bool answersWithSubstitutes() const { return state_.testMode || state_.skipChecks; }

  // For a member in its turn: the port is open, and has been since the member began.
  [[nodiscard]] bool isOpen() const { return line_.isOpen(member_.opening); }
  // For a member in its turn: tells it from every other turn of this session.
  [[nodiscard]] std::uint32_t turnNumber() const { return member_.number; }

  // The session takes over a stream that it opened, and closes it.
  void attach(std::shared_ptr<Transport> transport) { line_.attach(std::move(transport)); }
  void detach() { line_.close(); }
  [[nodiscard]] const OpeningRef& opening() const { return line_.opening(); }

  // What became of the last command: of Execute, ExecuteNoCheck, SendDirect and the members that
  // read a reply; documented members that send several end with the last one's.
  [[nodiscard]] const SendRecord& lastSend() const { return lastSend_; }
  // True while a member of the session waits for the printer, writes to it, or shows a box.
  [[nodiscard]] bool isBusy() const { return turns_ > 0; }

  // Shows a message box; by the setting "SinMensajes" the trace has its text instead.
  [[nodiscard]] MessageDialog& dialog();

  void setOutcome(pfErrors error, const wchar_t* description);
  // The same for a command that is not sent for what its arguments or the session hold.
  void refuseCommand(pfErrors error, const std::wstring& description);

 private:
  // Message boxes as lines of the trace.
  class TracedDialog : public MessageDialog {
   public:
    explicit TracedDialog(TraceLog& trace) : trace_(trace) {}
    void show(const std::wstring& text, const std::wstring& title, MessageIcon icon) override;

   private:
    TraceLog& trace_;
  };
  enum class Sent { Accepted, Refused, Unanswered, Over };

  [[nodiscard]] SendRecord::Command beginCommand() {
    member_.silentSeconds = 0;
    return {lastSend_, thread_.clock()};
  }
  std::int16_t runCommand(const std::wstring& command);
  Sent sendUntilAccepted(const std::wstring& command, int& attempts);
  Sent sendBlock(const std::wstring& command);
  bool requestStatus();
  bool awaitStatus();
  Look settleLine();
  bool isUsable(Look look);
  bool receiveNextBlock();
  WaitEnd WaitForReply(bool forStatus);
  WaitEnd collectReply(bool forStatus);
  void noteSilence(bool forStatus, double seconds);
  WaitEnd concludeWait(WaitEnd end);
  WaitEnd waitWithoutChecks();
  void tellFailure(const RunTimeError& error);
  std::int32_t write(std::wstring_view text);
  void writeUnchecked(const std::wstring& command);
  void discardLate();
  void traceDiscarded(const std::string& late);
  // How much longer the command may wait for a status.
  [[nodiscard]] double patience() const;
  [[nodiscard]] Lines fieldsOfReply();
  void addToPreview(const std::wstring& line);
  void setPortClosed() { setOutcome(pfCommError, L"PUERTO CERRADO"); }
  void setSilent() { setOutcome(pfCommError, L"pfError de comunicacion"); }
  template <class Words>
  void trace(Words&& words) {
    thread_.trace().traceWith(std::forward<Words>(words));
  }

  ThreadState& thread_;
  Settings settings_;
  TracedDialog tracedDialog_;
  ExchangeState state_;
  Line line_;
  SendRecord lastSend_;
  int turns_ = 0;  // turns under way, those that wait included
  std::uint32_t lastTurn_ = 0;
  Member member_;
};

}  // namespace corvid
