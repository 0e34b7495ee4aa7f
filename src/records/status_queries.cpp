#include "records/status_queries.h"

namespace corvid {
namespace {

// A printer that refused or merely acknowledged a query leaves no field at all.
bool isFailure(const Lines& fields) { return fields.empty() || fields.front() == kFailedReply; }

}  // namespace

std::shared_ptr<PrinterResponse1> Response1(PrinterFiscal& session) {
  auto record = std::make_shared<PrinterResponse1>(session.library());
  std::wstring reply;
  if (!session.answersWithSubstitutes()) {
    reply = session.GetResponseString(L"S1", std::wstring(1, kLineFeed));
    reply.erase(0, 1);  // the separator in front of the first field
  }
  if (reply.empty() || reply == kFailedReply) {
    record->loadFakeQuietly();
  } else {
    record->loadFromResponse(reply);
  }
  return record;
}

std::shared_ptr<PrinterResponse3> Response3(PrinterFiscal& session) {
  auto record = std::make_shared<PrinterResponse3>(session.library());
  const Lines fields = session.answersWithSubstitutes() ? Lines{} : session.GetResponse(L"S3");
  if (isFailure(fields)) {
    record->loadFake();
  } else {
    record->loadFromResponse(ReplyFields(fields));
  }
  return record;
}

std::wstring RecordStatusSource::readSerial(PrinterFiscal& session) {
  return Response1(session)->values.Serial;
}

std::shared_ptr<RateRecord> RecordStatusSource::readRates(PrinterFiscal& session) {
  return Response3(session);
}

}  // namespace corvid
