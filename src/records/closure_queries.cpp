#include "records/closure_queries.h"

#include "basic/run_time_error.h"
#include "protocol/housekeeping_commands.h"
#include "records/closure_rows.h"

#include <limits>

namespace corvid {
namespace {

// Seven refusals leave pfError as the status request had it.
bool wasRefused(PrinterFiscal& session) { return session.state().outcome.resultFlag == NAK; }

}  // namespace

std::shared_ptr<ResumenZ> CerrarZ(PrinterFiscal& session) {
  if (session.Execute(kCloseDay) != pfOk || wasRefused(session)) return nullptr;
  return loadResumenZ(session);
}

std::shared_ptr<ResumenZ> loadResumenZ(PrinterFiscal& session) {
  auto record = std::make_shared<ResumenZ>(session.library());
  record->load(session);
  return record;
}

std::vector<std::shared_ptr<ReporteZMF>> reportesZMF(PrinterFiscal& session, const Decimal& desde,
                                                     const Decimal& hasta) {
  const std::vector<Lines> rows = closureRows(session, desde, hasta);
  // Hosts count closures in 16 bits.
  if (rows.size() > std::numeric_limits<std::int16_t>::max()) throw overflow();
  std::vector<std::shared_ptr<ReporteZMF>> records;
  for (const Lines& row : rows) {
    records.push_back(std::make_shared<ReporteZMF>(session.library()));
    records.back()->loadFromResponse(ReplyFields(row));
  }
  return records;
}

std::shared_ptr<ReporteZMF> loadReporteZMF(PrinterFiscal& session, const Decimal& numero) {
  auto record = std::make_shared<ReporteZMF>(session.library());
  return record->load(session, numero) ? record : nullptr;
}

}  // namespace corvid
