// The queries of a session about daily closures, and the closing itself.
#pragma once

#include "basic/decimal.h"
#include "records/reporte_zmf.h"
#include "records/resumen_z.h"
#include "session/printer_fiscal.h"

#include <memory>
#include <vector>

namespace corvid {

// Each call gives fresh records. Failures of the exchange are not raised: the outcome tells why.

// Closes the day and reads the summary; nothing when the closing failed or was refused.
[[nodiscard]] std::shared_ptr<ResumenZ> CerrarZ(PrinterFiscal& session);
// The session's member ResumenZ. Left as a new record is when the query fails.
[[nodiscard]] std::shared_ptr<ResumenZ> loadResumenZ(PrinterFiscal& session);

// The closures of a range of numbers, in the printer's order; none when the query failed. Raises
// what a row raises that cannot be read, and overflow (6) for more than 32767 rows.
[[nodiscard]] std::vector<std::shared_ptr<ReporteZMF>> reportesZMF(PrinterFiscal& session,
                                                                   const Decimal& desde,
                                                                   const Decimal& hasta);
// One closure; nothing when the query failed. Raises what a row raises that cannot be read.
[[nodiscard]] std::shared_ptr<ReporteZMF> loadReporteZMF(PrinterFiscal& session,
                                                         const Decimal& numero);

}  // namespace corvid
