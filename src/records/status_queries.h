// The status queries of a session: one command each, its reply handed to a record.
#pragma once

#include "basic/decimal.h"
#include "records/estado_documento.h"
#include "records/printer_response1.h"
#include "records/printer_response2.h"
#include "records/printer_response3.h"
#include "records/printer_response4.h"
#include "session/printer_fiscal.h"
#include "session/status_source.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvid {

// Each call gives a fresh record: with substitute values in test or unchecked mode (nothing is
// sent) and when the exchange failed (the outcome tells why). Response2 and Response4 raise what
// their records raise for a reply that cannot be read; the others never raise.
[[nodiscard]] std::shared_ptr<PrinterResponse1> Response1(PrinterFiscal& session);
[[nodiscard]] std::shared_ptr<PrinterResponse2> Response2(PrinterFiscal& session);
[[nodiscard]] std::shared_ptr<PrinterResponse3> Response3(PrinterFiscal& session);
[[nodiscard]] std::shared_ptr<PrinterResponse4> Response4(PrinterFiscal& session);

// These send their command in every mode. A failed exchange is not raised, but a reply that cannot
// be read is: a missing field 9, no number 13, too large a number 6.

// A fresh record, with nothing loaded when the exchange failed.
[[nodiscard]] std::shared_ptr<EstadoDocumento> getEstadoDocumento(PrinterFiscal& session);
// Field 2 of "S1"; -1 when the exchange failed.
[[nodiscard]] std::int32_t numeroUltimaFactura(PrinterFiscal& session);
// Field 6 of "S1" in every layout (in the long one that is the last credit note); -1 when the
// exchange failed.
[[nodiscard]] std::int32_t NumeroUltimoCierre(PrinterFiscal& session);
// The printer's tax rate `index` (1 to 3) in percent: the leading number of the text behind the
// kind digit, in hundredths. 0 for an index below 1 or above 3 (nothing is sent), -1 when the
// exchange failed. Between two whole numbers, index - 1 is rounded half to even.
[[nodiscard]] double tasa(PrinterFiscal& session, const Decimal& index);

// What sessions read of the records, handed to them at creation.
class RecordStatusSource : public StatusSource {
 public:
  [[nodiscard]] std::wstring readSerial(PrinterFiscal& session) override;
  [[nodiscard]] std::shared_ptr<RateRecord> readRates(PrinterFiscal& session) override;
};

}  // namespace corvid
