#include "records/z_report_queries.h"

#include "basic/run_time_error.h"
#include "protocol/housekeeping_commands.h"
#include "records/z_report_rows.h"

#include <limits>

namespace corvid {
namespace {

// Seven refusals leave pfError as the status request had it.
bool wasRefused(Exchange& exchange) { return exchange.outcome().resultFlag == NAK; }

}  // namespace

std::shared_ptr<DailySummary> CerrarZ(Exchange& exchange) {
  if (exchange.Execute(kCloseDay) != pfOk || wasRefused(exchange)) return nullptr;
  return loadResumenZ(exchange);
}

std::shared_ptr<DailySummary> loadResumenZ(Exchange& exchange) {
  auto record = std::make_shared<DailySummary>(exchange.thread());
  record->load(exchange);
  return record;
}

std::vector<std::shared_ptr<ZReportRecord>> reportesZMF(Exchange& exchange, const Decimal& desde,
                                                        const Decimal& hasta) {
  const std::vector<Lines> rows = zReportRows(exchange, desde, hasta);
  // Hosts count Z reports in 16 bits.
  if (rows.size() > std::numeric_limits<std::int16_t>::max()) throw overflow();
  std::vector<std::shared_ptr<ZReportRecord>> records;
  for (const Lines& row : rows) {
    records.push_back(std::make_shared<ZReportRecord>(exchange.thread()));
    records.back()->loadFromResponse(ReplyFields(row));
  }
  return records;
}

std::shared_ptr<ZReportRecord> loadReporteZMF(Exchange& exchange, const Decimal& numero) {
  auto record = std::make_shared<ZReportRecord>(exchange.thread());
  return record->load(exchange, numero) ? record : nullptr;
}

}  // namespace corvid
