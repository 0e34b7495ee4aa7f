// Replies turned into records, each with the number of fields of the longest layout.
#include "basic/text.h"
#include "counted.h"
#include "records/counters_record.h"
#include "records/daily_summary.h"
#include "records/document_state_record.h"
#include "records/payments_record.h"
#include "records/rates_record.h"
#include "records/transaction_record.h"
#include "records/z_report_record.h"
#include "support/world.h"

#include <cstddef>
#include <string>
#include <type_traits>

namespace corvid {
namespace {

constexpr std::size_t kFrame = 3;  // STX, end, check byte

std::wstring repeated(const wchar_t* field, int times) {
  std::wstring fields;
  for (int i = 0; i < times; ++i) fields += field;
  return fields;
}

const std::wstring kCounters =
    L"S101\n12345678901\n1234\n56\n78\n9\n12\n345\n12\n3\n45\n6\nJ-12345678-9\nZ1F0000001\n1030\n"
    L"260314";
const std::wstring kDocument = L"S2 000123456\n000019753\n1234\n5000\n000143209\n02\n1";
const std::wstring kRates = L"21600\n20800\n23100\n20300\n" + repeated(L"01", 64);
const std::wstring kMeans = L"S4000000012345" + repeated(L"\n000000012345", 23);
const std::wstring kOfZReport = L"0012\n260314\n1030\n00001234\n260314\n1029";
const std::wstring kSummary =
    kOfZReport + repeated(L"\n00000012", 3) + repeated(L"\n000012345", 30);
const std::wstring kZReport = kOfZReport + repeated(L"\n000000012345", 22);

// The value that each record reads last: what the reply did not fill would be timed too short.
bool isFilled(const CountersRecord& record) { return record.values.notasCreditoDia != 0; }
bool isFilled(const TransactionRecord& record) { return record.values.tipoTrans != 0; }
bool isFilled(const RatesRecord& record) { return record.values.nFlags == 63; }
bool isFilled(const PaymentsRecord& record) { return record.nMedios() == 24; }
bool isFilled(const DocumentStateRecord& record) { return record.values.estado != 0; }
bool isFilled(const DailySummary& record) { return record.values.IGTFNC != Currency{}; }
bool isFilled(const ZReportRecord& record) { return record.values.impuestoNCIR != Currency{}; }

// Splits the reply, as the session does, and fills a record.
template <typename Record>
void fill(Record& record, const std::wstring& reply) {
  record.loadFromResponse(ReplyFields(split(reply, L"\n")));
}

void fill(CountersRecord& record, const std::wstring& reply) { record.loadFromResponse(reply); }

// This record alone needs no library.
template <typename Record>
Record made(ThreadState& thread) {
  if constexpr (std::is_default_constructible_v<Record>) {
    return {};
  } else {
    return Record(thread);
  }
}

template <typename Record, const std::wstring& reply>
void parse(benchmark::State& state) {
  World world;
  ThreadState thread(world.environment());
  auto record = made<Record>(thread);
  for (auto _ : state) {
    fill(record, reply);
    benchmark::DoNotOptimize(&record);
    benchmark::ClobberMemory();
  }
  if (!isFilled(record)) state.SkipWithError("the reply was not read whole");
  countWire(state, reply.size() + kFrame);
}
BENCHMARK_TEMPLATE(parse, CountersRecord, kCounters)->Name("record/PrinterResponse1");
BENCHMARK_TEMPLATE(parse, TransactionRecord, kDocument)->Name("record/PrinterResponse2");
BENCHMARK_TEMPLATE(parse, RatesRecord, kRates)->Name("record/PrinterResponse3");
BENCHMARK_TEMPLATE(parse, PaymentsRecord, kMeans)->Name("record/PrinterResponse4");
BENCHMARK_TEMPLATE(parse, DocumentStateRecord, kDocument)->Name("record/EstadoDocumento");
BENCHMARK_TEMPLATE(parse, DailySummary, kSummary)->Name("record/ResumenZ");
BENCHMARK_TEMPLATE(parse, ZReportRecord, kZReport)->Name("record/ReporteZMF");

}  // namespace
}  // namespace corvid
