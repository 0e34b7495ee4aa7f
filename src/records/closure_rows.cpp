#include "records/closure_rows.h"

#include "basic/format.h"
#include "records/query_reply.h"

namespace corvid {

std::vector<Lines> closureRows(PrinterFiscal& session, const Decimal& desde, const Decimal& hasta) {
  std::vector<Lines> rows =
      session.GetMultipleResponses(L"U3A" + format(desde, L"000000") + format(hasta, L"000000"));
  if (isFailure(rows.front())) rows.clear();
  return rows;
}

}  // namespace corvid
