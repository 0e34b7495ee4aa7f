// One wait for the printer's answer.
#pragma once

#include "exchange/line.h"
#include "exchange/outcome.h"
#include "exchange/time_out.h"
#include "protocol/reply_decoder.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvid {

struct WaitTerms {
  bool forStatus = false;  // only a status is an answer; other blocks are dropped
  bool verifies = false;   // a block without its right check byte ends the wait
};

enum class WaitEnd {
  Block,
  Accepted,
  Refused,
  TimeOut,
  Damaged,  // a block without its right check byte
  Lost,     // the device is gone
  Closed,   // the host has closed or reopened the session
};

// Gathers what the line gives and decodes it until an answer is whole. A printer's ENQ is
// acknowledged on the way. Traces each step; leaves what was collected in the outcome's result, and
// the kind of the answer in its resultFlag.
class ReplyWait {
 public:
  ReplyWait(ThreadState& thread, Line& line, OpeningRef opening, Outcome& outcome,
            const WaitTerms& terms, const TimeOut& timeOut);
  ReplyWait(const ReplyWait&) = delete;
  ReplyWait& operator=(const ReplyWait&) = delete;

  [[nodiscard]] WaitEnd run();
  // After a wait that ended with a block.
  [[nodiscard]] ReplyEvent& block() { return block_; }
  // Whether the answer was the last that the line gave.
  [[nodiscard]] bool tookAll() const { return tookAll_; }

 private:
  std::optional<ReplyEvent> nextEvent(Pauses::Wait& pauses);
  std::optional<ReplyEvent> decodePending();
  std::optional<ReplyEvent> gather(Pauses::Wait& pauses, std::string& gathered);
  std::optional<WaitEnd> conclude(ReplyEvent& event);
  std::optional<WaitEnd> concludeBlock(ReplyEvent& event);
  WaitEnd concludeAnswer(WaitEnd end, controlValues flag, const wchar_t* words);
  std::optional<WaitEnd> acknowledgeRequest();
  bool isLateStatus(const ReplyEvent& event);
  void traceCheckByte(const ReplyEvent& event);
  void showCollected(std::string_view bytes, bool isReady);
  void dropRest();
  [[nodiscard]] bool isOver() const;
  [[nodiscard]] std::wstring escaped(std::string_view bytes) const;

  ThreadState& thread_;
  TraceLog& trace_;
  Line& line_;
  OpeningRef opening_;
  Outcome& outcome_;
  WaitTerms terms_;
  const TimeOut& timeOut_;
  ReplyDecoder decoder_;
  std::string pending_;          // read and not yet decoded
  std::optional<WaitEnd> gone_;  // the line went while it was looked at
  ReplyEvent block_;
  bool tookAll_ = true;
};

}  // namespace corvid
