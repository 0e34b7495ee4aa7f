// Every record from any reply. The input's first line is the record's number, the rest its reply.
#include "input.h"
#include "protocol/reply.h"
#include "records/counters_record.h"
#include "records/daily_summary.h"
#include "records/document_state_record.h"
#include "records/payments_record.h"
#include "records/rates_record.h"
#include "records/transaction_record.h"
#include "records/z_report_record.h"
#include "support/error_of.h"
#include "support/world.h"

#include <set>

namespace corvid {
namespace {

using fuzz::require;

const std::set<int> kNever = {0};
const std::set<int> kUnreadable = {0, 6, 9, 13};

template <class Record, class Reply>
void loadTwice(Record& record, const Reply& reply, const std::set<int>& errors) {
  const auto load = [&] {
    record.loadFromResponse(reply);
    return 0;
  };
  const int error = errorOf(load);
  require(errors.contains(error), "a reply that cannot be read throws what the header says");
  const std::wstring text = record.toString();
  require(errorOf(load) == error && record.toString() == text, "loading again changes nothing");
}

void loadPayments(const ReplyFields& fields) {
  PaymentsRecord record;
  const int error = errorOf([&] {
    record.loadFromResponse(fields);
    return 0;
  });
  require(kUnreadable.contains(error) && error != 9, "no field is missing");
  const int methods = error == 0 ? std::min(fields.upperBound() + 1, 24) : 0;
  require(record.nMedios() == methods, "as many methods as fields");
  for (int n = -1; n <= methods + 1; ++n) {
    const Currency amount = record.valor(Decimal::fromInteger(n));
    require((n >= 1 && n <= methods) || amount == Currency{}, "no method, no amount");
  }
}

void loadRates(ThreadState& thread, const ReplyFields& fields) {
  RatesRecord record(thread);
  loadTwice(record, fields, kNever);
  for (int n = -1; n <= record.values.nFlags + 1; ++n) {
    const bool isFlag = n >= 0 && n <= record.values.nFlags;
    const int flag = record.Flag(static_cast<std::int16_t>(n));
    require(isFlag ? flag > -10 && flag < 100 : flag == -1, "a flag has two digits");
  }
}

template <class Record>
void loadFields(ThreadState& thread, const ReplyFields& fields, const std::set<int>& errors) {
  Record record(thread);
  loadTwice(record, fields, errors);
}

}  // namespace
}  // namespace corvid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid;
  fuzz::Input input(data, size);
  World world;
  ThreadState thread(world.environment());
  const int record = input.number(1, 7);
  const std::wstring reply = windows1252().decode(input.rest());
  const ReplyFields fields(fieldsOf(reply));
  switch (record) {
    case 1: {
      CountersRecord counters(thread);
      loadTwice(counters, reply, kNever);
      break;
    }
    case 2:
      loadFields<TransactionRecord>(thread, fields, kUnreadable);
      break;
    case 3:
      loadRates(thread, fields);
      break;
    case 4:
      loadPayments(fields);
      break;
    case 5:
      loadFields<DocumentStateRecord>(thread, fields, kUnreadable);
      break;
    case 6:
      loadFields<DailySummary>(thread, fields, kNever);
      break;
    default:
      loadFields<ZReportRecord>(thread, fields, kUnreadable);
      break;
  }
  return 0;
}
