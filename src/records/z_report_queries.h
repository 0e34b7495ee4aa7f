// The queries of a session about daily closures, and the closing itself.
#pragma once

#include "basic/decimal.h"
#include "exchange/exchange.h"
#include "records/daily_summary.h"
#include "records/z_report_record.h"

#include <memory>
#include <vector>

namespace corvid {

// Each call gives fresh records. Failures of the exchange are not raised: the outcome tells why.

// Closes the day and reads the summary; nothing when the closing failed or was refused.
[[nodiscard]] std::shared_ptr<DailySummary> CerrarZ(Exchange& exchange);
// The session's member ResumenZ. Left as a new record is when the query fails.
[[nodiscard]] std::shared_ptr<DailySummary> loadResumenZ(Exchange& exchange);

// The closures of a range of numbers, in the printer's order; none when the query failed. Raises
// what a row raises that cannot be read, and overflow (6) for more than 32767 rows.
[[nodiscard]] std::vector<std::shared_ptr<ZReportRecord>> reportesZMF(Exchange& exchange,
                                                                      const Decimal& desde,
                                                                      const Decimal& hasta);
// One closure; nothing when the query failed. Raises what a row raises that cannot be read.
[[nodiscard]] std::shared_ptr<ZReportRecord> loadReporteZMF(Exchange& exchange,
                                                            const Decimal& numero);

}  // namespace corvid
