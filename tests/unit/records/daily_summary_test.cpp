#include "records/daily_summary.h"

#include "distinct_fields.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

using V = DailySummaryValues;
using Record = RecordOf<DailySummary>;

TEST(DailySummary, FailedReadingChangesNothingAndTheNextReplaces) {
  DocumentBench bench;
  DailySummary record(bench.thread());
  std::string reply = "321";
  for (int i = 1; i < 20; ++i) reply += "\n" + std::to_string(100 + i);
  const std::string changed = "322" + reply.substr(3);
  bench.printer().answers["U0Z"] = blockOf(reply);
  record.load(bench.exchange());
  EXPECT_EQ(record.values.numeroUltimoZ, 321);
  for (const FailedAnswer& failed : kFailedAnswers) {
    bench.printer().answers["U0Z"] = failed.answer;
    record.Refresh(bench.exchange());
    EXPECT_EQ(record.values.numeroUltimoZ, 321) << failed.reason;
  }
  bench.printer().answers["U0Z"] = blockOf(changed);
  record.Refresh(bench.exchange());
  EXPECT_EQ(record.values.numeroUltimoZ, 322);
}

TEST(DailySummary, TextFormShowsSalesCreditNotesAndLevy) {
  Record target;
  target.world.process.setLastSerial(L"z1A");
  target.world.locale.locale = venezuelan();
  V& v = target.record.values;
  std::int64_t hundredths = 100000;
  for (const auto amount : kSummaryAmounts) v.*amount = Currency::fromUnits(hundredths++ * 100);
  v.numeroUltimoZ = 12;
  v.numeroUltimaFactura = 34;
  v.fechaUltimaFactura = Date{45429.4375};
  v.ultimaNC = 56;
  v.ultimaND = 57;
  v.ultimoDNF = 78;
  EXPECT_EQ(target.record.toString(),
            L"Serial = z1A\r\n"
            L"NumeroCierre = 00012\r\n"
            L"ultimaFactura = 000034\r\n"
            L"fechaUltimaFactura = 17-05-2024 10:30\r\n"
            L"VentaExenta = Bs. 1.000,00\r\n"
            L"VentaBase1 = Bs. 1.000,01\r\n"
            L"IVABAse1 = Bs. 1.000,02\r\n"
            L"VentaBase2 = Bs. 1.000,03\r\n"
            L"IVABase2 = Bs. 1.000,04\r\n"
            L"VentaBase3 = Bs. 1.000,05\r\n"
            L"IVABase3 = Bs. 1.000,06\r\n"
            L"DevolucionExenta = Bs. 1.000,14\r\n"
            L"DevolucionBase1 = Bs. 1.000,15\r\n"
            L"IVADevBase1 = Bs. 1.000,16\r\n"
            L"DevolucionBase2 = Bs. 1.000,17\r\n"
            L"IVADevBase2 = Bs. 1.000,18\r\n"
            L"DevolucionBase3 = Bs. 1.000,19\r\n"
            L"IVADevBase3 = Bs. 1.000,20\r\n"
            L"UltimaNC = 000056\r\n"
            L"UltimoDNF = 000078\r\n"
            L"BaseIGTF = Bs. 1.000,24\r\n"
            L"ValorIGTF = Bs. 1.000,25\r\n");
}

}  // namespace
}  // namespace corvid
