// What a query learns from its reply before a record reads it.
#pragma once

#include "basic/text.h"
#include "exchange/exchange.h"

namespace corvid {

// A printer that refused or merely acknowledged a query leaves no field at all.
[[nodiscard]] inline bool isFailure(const Lines& fields) {
  return fields.empty() || fields.front() == kFailedReply;
}

}  // namespace corvid
