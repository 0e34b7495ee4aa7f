#include "records/daily_summary.h"

#include "basic/text.h"
#include "distinct_fields.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

using V = DailySummaryValues;

constexpr Currency V::*kAmounts[] = {
    &V::ventasExentas, &V::baseVG,          &V::impuestoVG,  &V::baseIR,       &V::impuestoIR,
    &V::baseIA,        &V::impuestoIA,      &V::exentoND,    &V::baseVGND,     &V::impuestoVGND,
    &V::baseIRND,      &V::impuestoIRND,    &V::baseIAND,    &V::impuestoIAND, &V::exentoNC,
    &V::baseVGNC,      &V::impuestoVGNC,    &V::baseIRNC,    &V::impuestoIRNC, &V::baseIANC,
    &V::impuestoIANC,  &V::percibidoVentas, &V::percibidoND, &V::percibidoNC,  &V::BaseIGTF,
    &V::ValorIGTF,     &V::BaseIGTFND,      &V::IGTFND,      &V::BaseIGTFNC,   &V::IGTFNC};

// For every value in interface order the field that it was read from, "_" where it is untouched.
std::wstring origins(const V& v) {
  Lines parts = {originOfZero(v.numeroUltimoZ, -1),
                 originOf(v.fechaUltimoReporte),
                 originOf(v.numeroUltimaFactura),
                 originOf(v.fechaUltimaFactura),
                 originOf(v.ultimaNC),
                 originOf(v.ultimaND),
                 originOf(v.ultimoDNF)};
  for (const auto amount : kAmounts) parts.push_back(originOf(v.*amount));
  return join(parts, L" ");
}

struct Record : RecordOf<DailySummary> {
  std::wstring load(const Lines& fields) {
    record.loadFromResponse(ReplyFields(fields));
    return origins(record.values);
  }
};

const std::wstring kSeven = L" _ _ _ _ _ _ _";

// The four layouts, as the values of the interface see them.
const std::wstring kBasic =
    L"0 1 2 3@4 19 _ _"
    L" 5 6 7 8 9 10 11" +
    kSeven + L" 12 13 14 15 16 17 18 _ _ _ _ _ _ _ _ _";
const std::wstring kOf29 =
    L"0 1@2 3 4@5 28 20 _"
    L" 6 7 8 9 10 11 12 13 14 15 16 17 18 19 21 22 23 24 25 26 27 _ _ _ _ _ _ _ _ _";
const std::wstring kFirst30 =
    L"0 1@2 3 4@5 7 6 8"
    L" 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29";
const std::wstring kOf30 = kFirst30 + L" _ _ _ _ _ _ _ _ _";
const std::wstring kLong = kFirst30 + L" 30 31 32 33 34 35 36 37 38";
const std::wstring kLongCut = kFirst30 + L" 30 31 32 33 34 35 36 37 _";
const std::wstring kFresh = L"_ _ _ _ _ _ _" + kSeven + kSeven + kSeven + L" _ _ _ _ _ _ _ _ _";

TEST(DailySummary, CountOfFieldsChoosesTheLayout) {
  const struct {
    int count;
    std::wstring origins;
  } kCases[] = {{20, kBasic}, {21, kBasic}, {27, kBasic}, {28, kBasic}, {29, kOf29},
                {30, kOf30},  {31, kOf30},  {32, kBasic}, {37, kBasic}, {38, kLongCut},
                {39, kLong},  {40, kLong},  {41, kLong},  {42, kBasic}, {5000, kBasic}};
  for (const auto& item : kCases) {
    Record target;
    EXPECT_EQ(target.load(distinctFields(item.count)), item.origins) << item.count << " fields";
  }
}

TEST(DailySummary, FirstFieldThatCannotBeReadEndsTheReading) {
  const struct {
    int count;
    std::size_t field;
    const wchar_t* text;
    std::wstring origins;
    const char* reason;
  } kCases[] = {
      {20, 0, L"40000", kFresh, "a zReport beyond 16 bits"},
      {20, 0, L"pfError", kFresh, "letters at once"},
      {20, 2, L"", L"0 1 _ _ _ _ _" + kSeven + kSeven + kSeven + L" _ _ _ _ _ _ _ _ _",
       "an empty counter"},
      {20, 19, L"99999999999",
       L"0 1 2 3@4 _ _ _ 5 6 7 8 9 10 11" + kSeven + L" 12 13 14 15 16 17 18 _ _ _ _ _ _ _ _ _",
       "a credit note beyond 32 bits"},
      {29, 13, L"1\x03",
       L"0 1@2 3 4@5 _ _ _ 6 7 8 9 10 11 12" + kSeven + kSeven + L" _ _ _ _ _ _ _ _ _",
       "a control character in an amount"},
      {39, 33, L"99999999999999999", kFirst30 + L" 30 31 32 _ _ _ _ _ _",
       "an amount beyond its type"},
  };
  for (const auto& item : kCases) {
    Record target;
    Lines fields = distinctFields(item.count);
    fields.at(item.field) = item.text;
    EXPECT_EQ(target.load(fields), item.origins) << item.reason;
  }
}

TEST(DailySummary, CutReplyFillsWhatItHas) {
  const wchar_t* const begins[] = {L"_ _ _", L"0 _ _", L"0 1 _", L"0 1 2"};
  for (int count = 0; count < 4; ++count) {
    Record target;
    EXPECT_EQ(target.load(distinctFields(count)), begins[count] + kFresh.substr(5)) << count;
  }
}

TEST(DailySummary, DateThatIsNoneIsNow) {
  Record target;
  Lines fields = distinctFields(30);
  fields.at(1) = L"241399";
  target.load(fields);
  EXPECT_EQ(target.record.values.fechaUltimoReporte, target.world.clock.now());
  EXPECT_EQ(originOf(target.record.values.fechaUltimaFactura), L"4@5");
}

TEST(DailySummary, LayoutKeepsTheValuesThatItDoesNotCarry) {
  Record target;
  target.load(distinctFields(39));
  const std::wstring kept =
      L"0 1 2 3@4 19 6 8 5 6 7 8 9 10 11 16 17 18 19 20 21 22"
      L" 12 13 14 15 16 17 18 30 31 32 33 34 35 36 37 38";
  EXPECT_EQ(target.load(distinctFields(20)), kept);
}

TEST(DailySummary, ElementThatIsNoTextEndsTheReading) {
  Record target;
  target.record.loadFromResponse(FieldsWithHoles(distinctFields(20), {2}));
  EXPECT_EQ(originOf(target.record.values.fechaUltimoReporte), L"1");
  EXPECT_EQ(target.record.values.numeroUltimaFactura, 0);
}

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
  for (const auto amount : kAmounts) v.*amount = Currency::fromUnits(hundredths++ * 100);
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
