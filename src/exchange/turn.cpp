// Whose turn it is to use the line.
#include "exchange/exchange.h"

namespace corvid {

Exchange::Turn::Turn(Exchange& exchange, std::wstring_view member)
    : exchange_(exchange),
      isRefused_(exchange.turns_ > 0 && exchange.line_.hostRuns() && exchange.isOpen()),
      isShared_(exchange.turns_ > 0 && !exchange.line_.hostRuns()) {
  if (isRefused_) {
    exchange_.trace([&] { return L"Rejected, a command is in progress: " + std::wstring(member); });
    return;
  }
  ++exchange_.turns_;
  if (isShared_) return;
  outer_ = std::exchange(exchange_.member_, Member{exchange_.line_.opening()});
  hostRan_ = exchange_.line_.setHostRuns(false);
}

Exchange::Turn::~Turn() {
  if (isRefused_) return;
  --exchange_.turns_;
  if (isShared_) return;
  exchange_.line_.setHostRuns(hostRan_);
  exchange_.member_ = std::move(*outer_);
}

Exchange::Limit::Limit(Exchange& exchange)
    : exchange_(exchange), outer_(exchange.member_.deadline) {
  const double seconds = exchange.state_.limiteEspera;
  if (outer_ > 0 || seconds <= 0) return;
  exchange.member_.deadline = exchange.process_.clock().monotonicSeconds() + seconds;
}

bool Exchange::isAbandoned() const {
  return line_.isQuitting() || (member_.opening && !line_.isOpen(member_.opening));
}

}  // namespace corvid
