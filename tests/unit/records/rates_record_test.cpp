#include "records/rates_record.h"

#include "basic/format.h"
#include "basic/text.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

std::wstring image(const RatesRecord& record) {
  const Locale plain;
  const RatesValues& v = record.values;
  Lines parts = {toText(v.TipoTasa1),      toText(v.ValorTasa1, plain),
                 toText(v.TipoTasa2),      toText(v.ValorTasa2, plain),
                 toText(v.TipoTasa3),      toText(v.ValorTasa3, plain),
                 toText(v.isFake),         toText(v.TasaIGTF, plain),
                 std::to_wstring(v.nFlags)};
  for (std::int16_t i = 0; i <= v.nFlags; ++i) parts.push_back(std::to_wstring(record.Flag(i)));
  return join(parts, L" ");
}

using Record = RecordOf<RatesRecord>;

TEST(ThirdRecord, ReplyFillsRatesLevyAndFlags) {
  struct Case {
    std::wstring fields;
    std::wstring values;
    bool countsAsNone;  // is not read whole
    const char* reason;
  };
  const std::wstring rates = L"11600|20825|13100";
  const std::wstring ratesRead = L"True 16 False 8.25 True 31 False ";
  const std::wstring nothing = L"False 0 False 0 False 0 False 3 -1";
  const Case cases[] = {
      {rates + L"|0001020399", ratesRead + L"3 4 0 1 2 3 99", false, "4 fields: flags in field 3"},
      {rates + L"|20300|0007", ratesRead + L"3 1 0 7", false, "5 fields: IGTF and flags"},
      {rates + L"|20250|0007|x", ratesRead + L"2.5 1 0 7", false, "more fields are not read"},
      {rates + L"|0102|", ratesRead + L"3 1 1 2", false, "an empty field 4: flags in field 3"},
      {rates + L"|01020", ratesRead + L"3 1 1 2", false, "half a flag is not read"},
      {rates + L"|1", ratesRead + L"3 -1", false, "no whole flag"},
      {rates + L"|01xx03", ratesRead + L"3 2 1 0 0", true, "a bad flag: those before it stay"},
      {rates + L"|2abc|01", ratesRead + L"0 -1", true, "a bad IGTF"},
      {rates, nothing, true, "3 fields: rates are not read"},
      {L"", nothing, true, "no field"},
      {L"11600|2x|13100|01", L"True 16 False 0 False 0 False 0 -1", true, "a bad second rate"},
      {L"11600|20800|132768|01", L"True 16 False 8 True 0 False 0 -1", true, "beyond 16 bits"},
  };
  for (const Case& item : cases) {
    Record target;
    target.record.values.isFake = true;
    target.record.loadFromResponse(reply(item.fields));
    EXPECT_EQ(image(target.record), item.values) << item.reason;
    EXPECT_EQ(target.record.countsAsNone(), item.countsAsNone) << item.reason;
  }
}

TEST(ThirdRecord, FlagsAndRatesAreReadByTheirNumber) {
  Record target;
  EXPECT_EQ(target.record.Flag(0), -1) << "a fresh record has none";
  target.record.loadFromResponse(reply(L"11600|20825|13100|0102030405"));
  EXPECT_EQ(target.record.Flag(4), 5);
  EXPECT_EQ(target.record.Flag(5), -1);
  EXPECT_EQ(target.record.Flag(-1), -1);
  EXPECT_EQ(target.record.rate(1), 16);
  EXPECT_EQ(target.record.rate(2), 8.25);
  EXPECT_EQ(target.record.rate(3), 31);
}

TEST(ThirdRecord, SubstituteClearsRatesAndKeepsFlags) {
  Record target;
  EXPECT_FALSE(target.record.countsAsNone()) << "the host's own, never loaded";
  target.record.loadFromResponse(reply(L"11600|20800|13100|20300|0102"));
  target.record.loadFake();
  EXPECT_EQ(image(target.record), L"False 0 False 0 False 0 True 0 1 1 2");
  EXPECT_TRUE(target.record.countsAsNone());
  target.record.loadFromResponse(reply(L"11600"));
  target.record.loadFake();
  target.record.values.isFake = false;
  EXPECT_FALSE(target.record.countsAsNone()) << "a substitute that the host made its own";
}

TEST(ThirdRecord, TextFormShowsKindsRatesAndEveryFlag) {
  Record target;
  target.record.loadFromResponse(reply(L"11600|20825|13100|000799"));
  target.world.locale.locale = venezuelan();
  EXPECT_EQ(target.record.toString(),
            L"Tasa1: INCLUIDO\r\nValor 1: 16\r\n"
            L"Tasa2: ADICIONAL\r\nValor 2: 8,25\r\n"
            L"Tasa3: INCLUIDO\r\nValor 3: 31\r\n"
            L"FLAGS: 00  07  99\r\n");
}

}  // namespace
}  // namespace corvid
