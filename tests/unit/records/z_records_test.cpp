// What the records of a day and of a Z report show, and when a summary is replaced.
#include "distinct_fields.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

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
  RecordOf<DailySummary> target;
  target.world.process.setLastSerial(L"z1A");
  target.world.locale.locale = venezuelan();
  DailySummaryValues& v = target.record.values;
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

TEST(MemoryZReport, TextFormIsTheUsersDefault) {
  RecordOf<ZReportRecord> target;
  target.world.locale.locale = venezuelan();
  ZReportValues& v = target.record.values;
  std::int64_t hundredths = 150001;
  for (const auto amount : kZReportAmounts) v.*amount = Currency::fromUnits(hundredths++ * 100);
  v.numeroCierre = 7;
  v.fechaCierre = Date{45429.4375};
  v.horaCierre = Date{0.25};
  v.numeroUltimaFactura = 123456;
  v.fechaUltimaFactura = Date{45430};
  v.horaUltimaFactura = Date{0.4375};
  EXPECT_EQ(target.record.toString(),
            L"NumeroCierre = 7\r\n"
            L"Fecha Cierre = 17/05/2024 10:30:00 a. m.\r\n"
            L"numeroUltimaFactura = 123456\r\n"
            L"fechaUltimaFactura = 18/05/2024\r\n"
            L"horaUltimaFactura = 10:30:00 a. m.\r\n"
            L"ventasExentas = 1500,01\r\n"
            L"baseVG = 1500,02\r\n"
            L"impuestoVG = 1500,03\r\n"
            L"baseIR = 1500,04\r\n"
            L"impuestoIR = 1500,05\r\n"
            L"NCExentas = 1500,06\r\n"
            L"baseNCVG = 1500,07\r\n"
            L"impuestoNCVG = 1500,08\r\n"
            L"baseNCIR = 1500,09\r\n"
            L"impuestoNCIR = 1500,1\r\n");
}

}  // namespace
}  // namespace corvid
