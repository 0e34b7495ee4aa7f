// The rows of the fiscal memory, one for each daily closure.
#pragma once

#include "basic/decimal.h"
#include "basic/text.h"
#include "session/printer_fiscal.h"

#include <vector>

namespace corvid {

// Asks for the closures of a range of numbers, sent with six digits each: rounded half away from
// zero, never cut. No rows when the query failed; the outcome tells why.
[[nodiscard]] std::vector<Lines> closureRows(PrinterFiscal& session, const Decimal& desde,
                                             const Decimal& hasta);

}  // namespace corvid
