#include "records/z_report_record.h"

#include "distinct_fields.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

using V = ZReportValues;
using Record = RecordOf<ZReportRecord>;

TEST(MemoryZReport, DatesThatAreNoneAreNow) {
  Record target;
  Lines row = distinctFields(28);
  row.at(1) = L"xx0101";
  row.at(4) = L"240230";
  row.at(5) = L"2460";
  target.record.loadFromResponse(ReplyFields(row));
  const Date now = target.world.clock.now();
  EXPECT_EQ(target.record.values.fechaCierre, now);
  EXPECT_EQ(target.record.values.fechaUltimaFactura, now);
  EXPECT_EQ(target.record.values.horaUltimaFactura, now);
}

TEST(MemoryZReport, TextFormIsTheUsersDefault) {
  Record target;
  target.world.locale.locale = venezuelan();
  V& v = target.record.values;
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
