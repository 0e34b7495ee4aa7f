// The status queries of a session: one command each, its reply handed to a record.
#pragma once

#include "basic/decimal.h"
#include "exchange/exchange.h"
#include "records/counters_record.h"
#include "records/document_state_record.h"
#include "records/payments_record.h"
#include "records/rates_record.h"
#include "records/transaction_record.h"

#include <cstdint>
#include <memory>

namespace corvid {

// Each call gives a fresh record: with substitute values in test or unchecked mode (nothing is
// sent) and when the exchange failed (the outcome tells why). Response2 and Response4 throw what
// their records throw for a reply that cannot be read; the others never throw.
[[nodiscard]] std::shared_ptr<CountersRecord> Response1(Exchange& exchange);
[[nodiscard]] std::shared_ptr<TransactionRecord> Response2(Exchange& exchange);
[[nodiscard]] std::shared_ptr<RatesRecord> Response3(Exchange& exchange);
[[nodiscard]] std::shared_ptr<PaymentsRecord> Response4(Exchange& exchange);

// These send their command in every mode. A failed exchange is not thrown, but a reply that cannot
// be read is: a missing field 9, no number 13, too large a number 6.

// A fresh record, with nothing loaded when the exchange failed.
[[nodiscard]] std::shared_ptr<DocumentStateRecord> getEstadoDocumento(Exchange& exchange);
// Field 2 of "S1"; -1 when the exchange failed.
[[nodiscard]] std::int32_t numeroUltimaFactura(Exchange& exchange);
// Field 6 of "S1" in every layout (in the long one that is the last credit note); -1 when the
// exchange failed.
[[nodiscard]] std::int32_t NumeroUltimoCierre(Exchange& exchange);
// The printer's tax rate `index` (1 to 3) in percent: the leading number of the text after the
// kind digit, in hundredths. 0 for an index below 1 or above 3 (nothing is sent), -1 when the
// exchange failed. Between two whole numbers, index - 1 is rounded half to even.
[[nodiscard]] double tasa(Exchange& exchange, const Decimal& index);

}  // namespace corvid
