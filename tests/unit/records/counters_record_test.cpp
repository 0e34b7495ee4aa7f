#include "records/counters_record.h"

#include "basic/format.h"
#include "basic/text.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

constexpr const wchar_t* kFakeSection = L"Config\\NimbusPF\\Response1";

// Every value of a record in interface order, so that one wrong field shows.
std::wstring image(const CountersValues& v) {
  const Locale plain;
  const Lines parts = {std::to_wstring(v.numeroCajero),
                       toText(v.totalVentasDiarias, plain),
                       std::to_wstring(v.numeroUltimaFactura),
                       std::to_wstring(v.facturasDia),
                       std::to_wstring(v.ultimoDNF),
                       std::to_wstring(v.ndfDia),
                       std::to_wstring(v.nCierres),
                       std::to_wstring(v.contadorReportes),
                       v.RIF,
                       v.Serial,
                       format(v.Fecha, L"yymmdd hhnnss"),
                       std::to_wstring(v.numeroUltimaND),
                       std::to_wstring(v.notasDebitoDia),
                       std::to_wstring(v.numeroUltimaNC),
                       std::to_wstring(v.notasCreditoDia),
                       toText(v.isFake)};
  return join(parts, L" ");
}

// The cashier's number is the total too. The substitutes leave the debit and credit notes as they
// stand.
const std::wstring kFake = L"5 4.8 101 102 103 104 105 106 J-1 Zx 260314 103015 ";
const std::wstring kUntouched = kFake + L"-1 -2 -3 -4 False";

struct Record : RecordOf<CountersRecord> {
  Record() {
    const std::pair<const wchar_t*, const wchar_t*> settings[] = {
        {L"numeroCajero", L"4,8"},     {L"ultimaFactura", L"101"}, {L"facturasDia", L"102.0"},
        {L"ultimoDNF", L"103"},        {L"ndnfDia", L"104"},       {L"nCierres", L"105"},
        {L"contadorReportes", L"106"}, {L"RIF", L"J-1"},           {L"Serial", L"Zx"}};
    for (const auto& [key, value] : settings) world.settings.set(kFakeSection, key, value);
    record.values.numeroUltimaND = -1;
    record.values.notasDebitoDia = -2;
    record.values.numeroUltimaNC = -3;
    record.values.notasCreditoDia = -4;
    record.values.isFake = true;
  }
};

// Fields joined by blanks; "_" stands for an empty one.
std::wstring text(const std::wstring& fields) {
  Lines parts = split(fields, L" ");
  for (std::wstring& part : parts) part = part == L"_" ? L"" : part;
  return join(parts, L"\n");
}

TEST(FirstRecord, ReplyFillsEveryValueOrTheSubstitutesDo) {
  struct Case {
    std::wstring fields;
    std::wstring values;
    const char* reason;
  };
  const std::wstring eleven = L"S112 0012345 3 4 5 6 7 8 J-9 Z10 240517";
  const std::wstring twelve = eleven + L" 1030";
  const std::wstring shortValues = L"12 123.45 3 4 5 6 7 8 J-9 Z10 240517 103000 0 0 ";
  const std::wstring longFields = L"S112 1234567 3 4 5 6 7 8 9 10 11 12 J-13 Z14 103015 240517";
  const std::wstring longValues =
      L"12 12345.67 3 4 9 10 12 11 J-13 Z14 240517 103015 5 6 7 8 False";
  const Case cases[] = {
      {eleven, kFake + L"0 0 -3 -4 False", "11 fields: the time is missing"},
      {twelve, shortValues + L"0 0 False", "12 fields: no credit notes"},
      {twelve + L" 12 13 x", shortValues + L"12 13 False", "15 fields: the last is not read"},
      {twelve + L" x 13", shortValues + L"0 13 False", "a bad last credit note is 0"},
      {twelve + L" 12 40000", shortValues + L"12 0 False", "too many credit notes are 0"},
      {longFields, longValues, "16 fields: the long layout"},
      {longFields + L" 17 x", longValues, "more fields are not read"},
      {L"_", kUntouched, "nothing"},
      {L"S1xy 1 3 4 5 6 7 8 J Z 240517 1030", kUntouched, "a cashier that is no number"},
      {L"S112 1 3 4 5 6 7 99999999999 J Z 240517 1030", kFake + L"0 0 -3 -4 False",
       "a counter beyond 32 bits"},
      {L"S112 1 3 4 5 40000 7 8 9 10 11 12 J Z 1030 240517", kFake + L"5 -2 -3 -4 False",
       "debit notes beyond 16 bits"},
      {L"S112 1 3 4 5 6 7 40000 9 10 11 12 J Z 1030 240517", kFake + L"5 6 7 -4 False",
       "credit notes beyond 16 bits"},
      {L"7 -250 3 4 5 6 7 8 _ _ 241399 1030", L"7 -2.5 3 4 5 6 7 8   260314 103015 0 0 0 0 False",
       "one-digit cashier, negative total, empty texts, a date that is none"},
  };
  for (const Case& item : cases) {
    Record target;
    target.record.loadFromResponse(text(item.fields));
    EXPECT_EQ(image(target.record.values), item.values) << item.reason;
  }
}

TEST(FirstRecord, SubstitutesHaveTheirDefaults) {
  RecordOf<CountersRecord> target;
  target.record.loadFake();
  EXPECT_EQ(image(target.record.values),
            L"0 0 0 0 0 0 0 0 J-12345678-9  260314 103015 0 0 0 0 False");
}

TEST(FirstRecord, BadSubstituteIsRaisedToAHostAndNotToALoad) {
  Record target;
  target.world.settings.set(kFakeSection, L"facturasDia", L"many");
  EXPECT_EQ(errorOf([&] { target.record.loadFake(); }), 13);
  const std::wstring partly = L"5 4.8 101 0 0 0 0 0   991230 000000 -1 -2 -3 -4 ";
  EXPECT_EQ(image(target.record.values), partly + L"True");
  target.record.loadFromResponse(L"bad");
  EXPECT_EQ(image(target.record.values), partly + L"False");
}

TEST(FirstRecord, TextFormFollowsTheUsersLocale) {
  Record target;
  target.record.loadFromResponse(
      text(L"S107 123456789 42 5 6 1234 1001 7 j-9 z7a01 240517 103015 8 9"));
  EXPECT_EQ(target.record.toString(),
            L"numeroCajero = 007\r\n"
            L"TotalVentasDiarias = $1,234,567.89\r\n"
            L"NumeroUltimaFactura = 000042\r\n"
            L"facturasDia = 0005\r\n"
            L"ultimoDNF = 000006\r\n"
            L"ndfDia = 1,234\r\n"
            L"nCierres = 1,001\r\n"
            L"contadorReportes = 7\r\n"
            L"RIF = j-9\r\n"
            L"Serial = Z7A01\r\n"
            L"Fecha = 17-05-2024 10:30\r\n");
  target.world.locale.locale = venezuelan();
  const std::wstring text = target.record.toString();
  EXPECT_NE(text.find(L"TotalVentasDiarias = Bs. 1.234.567,89\r\n"), std::wstring::npos);
  EXPECT_NE(text.find(L"ndfDia = 1.234\r\n"), std::wstring::npos);
}

}  // namespace
}  // namespace corvid
