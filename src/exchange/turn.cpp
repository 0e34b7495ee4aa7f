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
  outer_ = std::exchange(exchange_.member_, Member{.opening = exchange_.line_.opening(),
                                                   .number = ++exchange_.lastTurn_});
  hostRan_ = exchange_.line_.setHostRuns(false);
}

Exchange::Turn::~Turn() {
  if (isRefused_) return;
  --exchange_.turns_;
  if (isShared_) return;
  exchange_.line_.setHostRuns(hostRan_);
  const bool wasOpen = exchange_.member_.opening != nullptr;
  exchange_.member_ = std::move(*outer_);
  // What the member traced after the host had closed the port opened the file again.
  if (exchange_.turns_ == 0 && wasOpen && !exchange_.line_.opening()) {
    exchange_.thread_.trace().closeFile();
  }
}

}  // namespace corvid
