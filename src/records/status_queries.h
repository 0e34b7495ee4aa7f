// The status queries of a session: one command each, its reply handed to a record.
#pragma once

#include "records/printer_response1.h"
#include "records/printer_response3.h"
#include "session/printer_fiscal.h"
#include "session/status_source.h"

#include <memory>
#include <string>

namespace corvid {

// Each call gives a fresh record: with substitute values in test or unchecked mode (nothing is
// sent) and when the exchange failed (the outcome tells why). None of them raises.
[[nodiscard]] std::shared_ptr<PrinterResponse1> Response1(PrinterFiscal& session);
[[nodiscard]] std::shared_ptr<PrinterResponse3> Response3(PrinterFiscal& session);

// What sessions read of the records, handed to them at creation.
class RecordStatusSource : public StatusSource {
 public:
  [[nodiscard]] std::wstring readSerial(PrinterFiscal& session) override;
  [[nodiscard]] std::shared_ptr<RateRecord> readRates(PrinterFiscal& session) override;
};

}  // namespace corvid
