#include "records/closure_rows.h"

#include "protocol/query_commands.h"
#include "records/query_reply.h"

namespace corvid {

std::vector<Lines> closureRows(PrinterFiscal& session, const Decimal& desde, const Decimal& hasta) {
  std::vector<Lines> rows = session.GetMultipleResponses(closuresQuery(desde, hasta));
  if (isFailure(rows.front())) rows.clear();
  return rows;
}

}  // namespace corvid
