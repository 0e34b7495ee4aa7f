// The rows of the fiscal memory, one for each Z report.
#pragma once

#include "basic/decimal.h"
#include "basic/text.h"
#include "exchange/exchange.h"

#include <vector>

namespace corvid {

// Asks for the Z reports of a range of numbers, sent with six digits each: rounded half away from
// zero, never cut. No rows when the query failed; the outcome tells why.
[[nodiscard]] std::vector<Lines> zReportRows(Exchange& exchange, const Decimal& desde,
                                             const Decimal& hasta);

}  // namespace corvid
