// What a session sees of an answer that arrives in pieces.
#pragma once

#include "support/session_bench.h"

#include <string>
#include <utility>
#include <vector>

namespace corvid {

inline constexpr double kLongestGap = 0.055;  // seconds; less than what counts as quiet

struct Piece {
  std::string bytes;
  double gap = 0;  // seconds after the piece before
};

// Answers the first request by the pieces.
class CutPrinter : public LinePeer {
 public:
  explicit CutPrinter(std::vector<Piece> pieces) : pieces_(std::move(pieces)) {}
  void received(std::string_view sent, NearEnd& line) override {
    if (sent == "\6") ++acknowledged;
    if (isAnswered_ || sent == "\6") return;
    isAnswered_ = true;
    double delay = 0;
    for (const Piece& piece : pieces_) {
      delay += piece.gap;
      if (!piece.bytes.empty()) line.deliver(piece.bytes, delay);
    }
  }
  int acknowledged = 0;

 private:
  std::vector<Piece> pieces_;
  bool isAnswered_ = false;
};

struct SeenReply {
  Outcome outcome;
  int acknowledged;
  bool operator==(const SeenReply&) const = default;
};

// Asks a printer for its status, or sends it an ACK.
inline SeenReply seenReply(bool forStatus, bool immediateReads, CutPrinter printer) {
  SessionBench bench({{L"TimeOut", L"1"}});
  bench.world().settings.set(kPortSection, L"LecturaInmediata",
                             immediateReads ? L"True" : L"False");
  bench.open();
  bench.outcome().DescripcionError.clear();
  bench.world().serial.connect(&printer);
  if (forStatus) {
    bench.exchange().GetStatus();
  } else {
    bench.exchange().SendAck();
  }
  return {bench.outcome(), printer.acknowledged};
}

}  // namespace corvid
