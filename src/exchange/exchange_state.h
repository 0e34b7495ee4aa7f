// The state of one session's exchange: what a host sees of it, the port, and its settings.
#pragma once

#include "exchange/outcome.h"
#include "platform/pending_view.h"

#include <cstdint>

namespace corvid {

struct ExchangeState {
  Outcome outcome;

  std::int16_t port = 0;  // number of the session's port; 0: none. A failed Abrir leaves it set
  bool ownsPort = false;  // this session opened that port and has to close it
  std::uint32_t openings = 0;  // counts Abrir and Cerrar, so that a wait notices them
  bool ready = false;          // the last wait saw a complete reply

  std::int16_t timeOut = 10;  // seconds that one wait for a reply may last
  bool skipChecks = false;    // no status request and no wait for replies
  bool testMode = false;      // no port: commands go to the preview
  PendingView preview;        // stands in for the printer in test mode
};

}  // namespace corvid
