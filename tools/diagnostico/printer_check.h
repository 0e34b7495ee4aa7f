// What a printer answers, and how its line brings it.
#pragma once

#include "exchange/thread_state.h"
#include "records/counters_record.h"
#include "tools/diagnostico/measured_transport.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvid {

struct PrinterAnswers {
  std::wstring openingError;  // empty: the stream opened, and was closed again
  bool hasStatus = false;     // to the last status request
  // One answer was lost or came without its right check byte, and the next was taken as it came.
  bool isUncertain = false;
  std::int32_t sts1 = 0;
  std::int32_t sts2 = 0;
  std::vector<Arrival> statuses;           // of the status requests that were answered
  std::optional<CountersValues> counters;  // nothing: not asked for, or no answer that can be read
  Arrival countersArrival;
  ReadManner manner = ReadManner::Unseen;
};

// Opens the stream and asks for the status as often as told, waiting that many seconds (1 or more)
// for each answer. The first that does not come, or not with its right check byte, ends this with
// one more request, whose answer counts as it comes. Where there is a status, asks for the counters
// too. Never throws for what the line or the printer does.
[[nodiscard]] PrinterAnswers askPrinter(ThreadState& thread, std::shared_ptr<Transport> stream,
                                        int statusRequests, std::int16_t seconds,
                                        bool wantsCounters);

}  // namespace corvid
