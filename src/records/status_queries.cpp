#include "records/status_queries.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "protocol/query_commands.h"
#include "protocol/reply.h"
#include "records/field_layout.h"
#include "records/query_reply.h"

namespace corvid {
namespace {

template <class Record>
std::shared_ptr<Record> queryRecord(Exchange& exchange, const wchar_t* command,
                                    std::shared_ptr<Record> record) {
  const Lines fields = exchange.answersWithSubstitutes() ? Lines{} : exchange.GetResponse(command);
  if (isFailure(fields)) {
    record->loadFake();
  } else {
    record->loadFromResponse(ReplyFields(fields));
  }
  return record;
}

std::int32_t queryCounter(Exchange& exchange, std::int32_t field) {
  const Lines fields = exchange.GetResponse(kQueryCounters);
  return isFailure(fields) ? -1 : readCounter(ReplyFields(fields).text(field));
}

}  // namespace

std::shared_ptr<CountersRecord> Response1(Exchange& exchange) {
  auto record = std::make_shared<CountersRecord>(exchange.thread(), exchange.settings());
  std::wstring reply;
  if (!exchange.answersWithSubstitutes()) {
    reply = exchange.GetResponseString(kQueryCounters, std::wstring(1, kLineFeed));
    reply.erase(0, 1);  // the separator before the first field
  }
  if (reply.empty() || reply == kFailedReply) {
    record->loadFakeQuietly();
  } else {
    record->loadFromResponse(reply);
  }
  return record;
}

std::shared_ptr<TransactionRecord> Response2(Exchange& exchange) {
  return queryRecord(exchange, kQueryDocument,
                     std::make_shared<TransactionRecord>(exchange.thread()));
}

std::shared_ptr<RatesRecord> Response3(Exchange& exchange) {
  return queryRecord(exchange, kQueryRates, std::make_shared<RatesRecord>(exchange.thread()));
}

std::shared_ptr<PaymentsRecord> Response4(Exchange& exchange) {
  return queryRecord(exchange, kQueryPayments, std::make_shared<PaymentsRecord>());
}

std::shared_ptr<DocumentStateRecord> getEstadoDocumento(Exchange& exchange) {
  auto record = std::make_shared<DocumentStateRecord>(exchange.thread());
  const Lines fields = exchange.GetResponse(kQueryDocument);
  if (!isFailure(fields)) record->loadFromResponse(ReplyFields(fields));
  return record;
}

std::int32_t numeroUltimaFactura(Exchange& exchange) { return queryCounter(exchange, 2); }

std::int32_t NumeroUltimoCierre(Exchange& exchange) { return queryCounter(exchange, 6); }

double tasa(Exchange& exchange, const Decimal& index) {
  const Decimal first = Decimal::fromInteger(1);
  if (index < first || index > Decimal::fromInteger(3)) return 0;
  const Lines fields = exchange.GetResponse(kQueryRates);
  if (isFailure(fields)) return -1;
  const std::wstring field = ReplyFields(fields).text(toInt32(index - first));
  return leadingNumberOrZero(mid(field, 2)) / 100;
}

}  // namespace corvid
