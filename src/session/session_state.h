// The state of one session: what a host sees, and the settings read at creation.
#pragma once

#include "platform/pending_view.h"
#include "session/outcome.h"
#include "session/status_source.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace corvid {

class Library;

constexpr std::int16_t kMostRates = 7;

// Public state: the host reads and writes it freely, with its published names. Every exchange sets
// it anew.
struct Outcome {
  std::wstring result;          // raw text of the reply collected by the last wait
  std::int32_t resultFlag = 0;  // controlValues: what ended the last reply
  std::int32_t pfError = pfOk;  // pfErrors: outcome class of the last exchange
  std::int32_t STS1 = 0;        // status bytes of the last status reply, 0 when none
  std::int32_t STS2 = 0;
  std::wstring DescripcionError;  // words for the outcome
};

struct SessionState {
  Outcome outcome;
  std::wstring SerialPrinter;      // the printer's registration number; Abrir fills an empty one
  std::shared_ptr<RateRecord> s3;  // rates and flags, read when first needed; may be empty
  std::int16_t f21 = 0;            // printer flag 21, from s3

  std::int16_t port = 0;  // number of the session's port; 0: none. A failed Abrir leaves it set
  bool ownsPort = false;  // this session opened that port and has to close it
  std::uint32_t openings = 0;  // counts Abrir and Cerrar, so that a wait notices them
  bool skipChecks = false;
  std::int16_t timeOut = 10;              // seconds that one wait for a reply may last
  std::int16_t retries = 3;               // read and kept; nothing uses it
  bool ready = false;                     // the last wait saw a complete reply
  std::int32_t columnasDescripcion = 28;  // width of an item's description
  std::array<double, kMostRates + 1> tasas{};
  std::int16_t numTasas = 0;  // how many of tasas were read
  bool testMode = false;      // no port: commands go to the preview
  PendingView preview;        // stands in for the printer in test mode
};

// Reads the settings of a new session, in their fixed order; one that does not fit its field
// leaves the field as it is. Never raises.
void readSettings(SessionState& state, Library& library);

}  // namespace corvid
