#include "records/z_report_record.h"

#include "basic/text.h"
#include "distinct_fields.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

using V = ZReportValues;

constexpr Currency V::*kAmounts[] = {
    &V::ventasExentas, &V::baseVG,   &V::impuestoVG,   &V::baseIR,   &V::impuestoIR,
    &V::NCExentas,     &V::baseNCVG, &V::impuestoNCVG, &V::baseNCIR, &V::impuestoNCIR};

// For every value in interface order the field that it was read from, "_" where it is untouched.
std::wstring origins(const V& v) {
  Lines parts = {originOfZero(v.numeroCierre, 0), originOf(v.fechaCierre),
                 originOf(v.horaCierre),          originOf(v.numeroUltimaFactura),
                 originOf(v.fechaUltimaFactura),  originOf(v.horaUltimaFactura)};
  for (const auto amount : kAmounts) parts.push_back(originOf(v.*amount));
  return join(parts, L" ");
}

using Record = RecordOf<ZReportRecord>;

const std::wstring kWhole = L"0 1@2 _ 3 4 @5 9 10 11 12 13 23 24 25 26 27";

TEST(MemoryZReport, RowFillsItUpToTheFirstBadField) {
  const struct {
    int count;
    std::size_t field;    // gets the text
    const wchar_t* text;  // nullptr: no field gets one
    std::wstring origins;
    int error;
    const char* reason;
  } kCases[] = {
      {28, 0, L"321", kWhole, 0, "28 fields"},
      {29, 28, L"x", kWhole, 0, "more fields are not read"},
      {5000, 0, L"321", kWhole, 0, "5000 fields"},
      {27, 0, L"321", L"0 1@2 _ 3 4 @5 9 10 11 12 13 23 24 25 26 _", 9, "27 fields"},
      {1, 0, L"321", L"0 _ _ _ _ _ _ _ _ _ _ _ _ _ _ _", 9, "one field"},
      {0, 0, nullptr, L"_ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _", 9, "no field"},
      {28, 0, L"32768", L"_ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _", 6, "a number beyond 16 bits"},
      {28, 0, L"Ok", L"_ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _", 13, "letters"},
      {28, 3, L"", L"0 1@2 _ _ _ _ _ _ _ _ _ _ _ _ _ _", 13, "an empty invoice"},
      {28, 9, L"99999999999999999", L"0 1@2 _ 3 4 @5 _ _ _ _ _ _ _ _ _ _", 6,
       "an amount beyond its type"},
      {28, 23, L"\x17", L"0 1@2 _ 3 4 @5 9 10 11 12 13 _ _ _ _ _", 13, "a control character"},
  };
  for (const auto& item : kCases) {
    Record target;
    Lines row = distinctFields(item.count);
    if (item.text != nullptr) row.at(item.field) = item.text;
    const int error = errorOf([&] { target.record.loadFromResponse(ReplyFields(row)); });
    EXPECT_EQ(error, item.error) << item.reason;
    EXPECT_EQ(origins(target.record.values), item.origins) << item.reason;
  }
}

TEST(MemoryZReport, UnusedElementsAreNotRead) {
  Record target;
  const FieldsWithHoles row(distinctFields(28), {6, 7, 8, 14, 15, 16, 17, 18, 19, 20, 21, 22});
  target.record.loadFromResponse(row);
  EXPECT_EQ(origins(target.record.values), kWhole);
}

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
  for (const auto amount : kAmounts) v.*amount = Currency::fromUnits(hundredths++ * 100);
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
