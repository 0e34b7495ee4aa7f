#include "records/z_report_rows.h"

#include "protocol/query_commands.h"
#include "records/query_reply.h"

namespace corvid {

std::vector<Lines> zReportRows(Exchange& exchange, const Decimal& desde, const Decimal& hasta) {
  std::vector<Lines> rows = exchange.GetMultipleResponses(zReportsQuery(desde, hasta));
  if (isFailure(rows.front())) rows.clear();
  return rows;
}

}  // namespace corvid
