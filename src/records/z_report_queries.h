// The queries of a session about Z reports, and the closing itself.
#pragma once

#include "basic/decimal.h"
#include "exchange/exchange.h"
#include "records/daily_summary.h"
#include "records/z_report_record.h"

#include <memory>
#include <vector>

namespace corvid {

// Each call gives fresh records. Failures of the exchange are not thrown: the outcome tells why.

// Closes the day and reads the summary; nothing when the closing failed or was refused.
[[nodiscard]] std::shared_ptr<DailySummary> CerrarZ(Exchange& exchange);
// The session's member ResumenZ. Left as a new record is when the query fails.
[[nodiscard]] std::shared_ptr<DailySummary> loadResumenZ(Exchange& exchange);

// The Z reports of a range of numbers, in the printer's order; none when the query failed. Throws
// what a row throws that cannot be read, and overflow (6) for more than 32767 rows.
[[nodiscard]] std::vector<std::shared_ptr<ZReportRecord>> reportesZMF(Exchange& exchange,
                                                                      const Decimal& desde,
                                                                      const Decimal& hasta);
// One Z report; nothing when the query failed. Throws what a row throws that cannot be read.
[[nodiscard]] std::shared_ptr<ZReportRecord> loadReporteZMF(Exchange& exchange,
                                                            const Decimal& numero);

}  // namespace corvid
