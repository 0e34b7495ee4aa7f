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
std::shared_ptr<Record> queryRecord(PrinterFiscal& session, const wchar_t* command,
                                    std::shared_ptr<Record> record) {
  const Lines fields = session.answersWithSubstitutes() ? Lines{} : session.GetResponse(command);
  if (isFailure(fields)) {
    record->loadFake();
  } else {
    record->loadFromResponse(ReplyFields(fields));
  }
  return record;
}

std::int32_t queryCounter(PrinterFiscal& session, std::int32_t field) {
  const Lines fields = session.GetResponse(kQueryCounters);
  return isFailure(fields) ? -1 : readCounter(ReplyFields(fields).text(field));
}

}  // namespace

std::shared_ptr<PrinterResponse1> Response1(PrinterFiscal& session) {
  auto record = std::make_shared<PrinterResponse1>(session.library());
  std::wstring reply;
  if (!session.answersWithSubstitutes()) {
    reply = session.GetResponseString(kQueryCounters, std::wstring(1, kLineFeed));
    reply.erase(0, 1);  // the separator in front of the first field
  }
  if (reply.empty() || reply == kFailedReply) {
    record->loadFakeQuietly();
  } else {
    record->loadFromResponse(reply);
  }
  return record;
}

std::shared_ptr<PrinterResponse2> Response2(PrinterFiscal& session) {
  return queryRecord(session, kQueryDocument,
                     std::make_shared<PrinterResponse2>(session.library()));
}

std::shared_ptr<PrinterResponse3> Response3(PrinterFiscal& session) {
  return queryRecord(session, kQueryRates, std::make_shared<PrinterResponse3>(session.library()));
}

std::shared_ptr<PrinterResponse4> Response4(PrinterFiscal& session) {
  return queryRecord(session, kQueryPayments, std::make_shared<PrinterResponse4>());
}

std::shared_ptr<EstadoDocumento> getEstadoDocumento(PrinterFiscal& session) {
  auto record = std::make_shared<EstadoDocumento>(session.library());
  const Lines fields = session.GetResponse(kQueryDocument);
  if (!isFailure(fields)) record->loadFromResponse(ReplyFields(fields));
  return record;
}

std::int32_t numeroUltimaFactura(PrinterFiscal& session) { return queryCounter(session, 2); }

std::int32_t NumeroUltimoCierre(PrinterFiscal& session) { return queryCounter(session, 6); }

double tasa(PrinterFiscal& session, const Decimal& index) {
  const Decimal first = Decimal::fromInteger(1);
  if (index.compare(first) < 0 || index.compare(Decimal::fromInteger(3)) > 0) return 0;
  const Lines fields = session.GetResponse(kQueryRates);
  if (isFailure(fields)) return -1;
  const std::wstring field = ReplyFields(fields).text(toInt32(index.minus(first)));
  return leadingNumberOrZero(mid(field, 2)) / 100;
}

std::wstring RecordStatusSource::readSerial(PrinterFiscal& session) {
  return Response1(session)->values.Serial;
}

std::shared_ptr<RateRecord> RecordStatusSource::readRates(PrinterFiscal& session) {
  return Response3(session);
}

}  // namespace corvid
