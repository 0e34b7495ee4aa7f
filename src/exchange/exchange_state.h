// The state of one session's exchange: what a host sees of it, its port, and its settings.
#pragma once

#include "exchange/outcome.h"
#include "platform/pending_view.h"

#include <cstdint>

namespace corvid {

struct ExchangeState {
  Outcome outcome;
  std::int16_t port = 0;  // number of the session's port; 0: none. A failed Abrir leaves it set
  PendingView preview;    // stands in for the printer in test mode

  // Settings, read at creation.
  std::int16_t timeOut = 10;  // seconds that one wait for a reply may last, 1 or more
  bool skipChecks = false;    // no status request and no wait for replies
  bool testMode = false;      // no port: commands go to the preview
  double limiteEspera = 0;  // seconds in all that one command waits for a silent printer; 0: no end
  bool rechazoEsError = false;      // a command refused to the end is an outcome of its own
  bool verificarRespuesta = false;  // a block without its right check byte is none
  bool sinMensajes = false;         // message boxes go to the trace
};

}  // namespace corvid
