// What a host finds in a record that no reply has filled.
#include "record_bench.h"
#include "records/counters_record.h"
#include "records/daily_summary.h"
#include "records/document_state_record.h"
#include "records/payments_record.h"
#include "records/rates_record.h"
#include "records/transaction_record.h"
#include "records/z_report_record.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

// The values of a new record's text that are not nothing, dates left out.
template <class Record>
Lines shownByNew() {
  const RecordOf<Record> fresh;
  Lines shown;
  for (const std::wstring& line : split(fresh.record.toString(), L"\r\n")) {
    const std::wstring value = line.substr(line.find_first_of(L"=:") + 1);
    const bool isDate = line.find(L"echa") != std::wstring::npos || line.starts_with(L"hora");
    if (!isDate && value.find_first_of(L"123456789") != std::wstring::npos) shown.push_back(line);
  }
  return shown;
}

TEST(FreshRecords, TellNothingOfAPrinter) {
  EXPECT_EQ(shownByNew<CountersRecord>(), Lines{});
  EXPECT_EQ(shownByNew<TransactionRecord>(), Lines{});
  EXPECT_EQ(shownByNew<DocumentStateRecord>(), Lines{});
  EXPECT_EQ(shownByNew<RatesRecord>(), Lines{});
  EXPECT_EQ(shownByNew<ZReportRecord>(), Lines{});
  EXPECT_EQ(shownByNew<DailySummary>(), Lines{L"NumeroCierre = -00001"});
  const RatesValues rates;
  EXPECT_FALSE(rates.TipoTasa1 || rates.TipoTasa2 || rates.TipoTasa3 || rates.isFake);
  EXPECT_EQ(rates.nFlags, -1);
  EXPECT_EQ(rates.TasaIGTF, 0);
  EXPECT_FALSE(CountersValues().isFake || PaymentsRecord().isFake);
  EXPECT_EQ(PaymentsRecord().nMedios(), 0);
  EXPECT_EQ(DailySummaryValues().ultimaND, 0);
}

}  // namespace
}  // namespace corvid
