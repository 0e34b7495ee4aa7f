#include "support/document_bench.h"
#include "support/item_line.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

using ClassicMethod = std::int16_t (*)(PrinterSession& session, const ItemLine& line);

const Lines kRates = {L"0", L"16", L"8", L"31"};

struct RatedBench : DocumentBench {
  explicit RatedBench(Entries entries = {}) : DocumentBench(entries) { configureRates(kRates); }
};

ItemLine line(const std::wstring& description, double price, double quantity, double rate) {
  return {description, price, quantity, rate};
}

TEST(ClassicItem, CommandIsRatePriceQuantityDescription) {
  const struct {
    ClassicMethod method;
    ItemLine line;
    std::string command;
    const char* reason;
  } kCases[] = {
      {PasarItem, line(L"PAN", 12.5, 2, 16), "!000000125000002000PAN", "sale at rate 1"},
      {PasarItem, line(L"PAN", 1, 1, 0), " 000000010000001000PAN", "exempt"},
      {PasarItem, line(L"PAN", 1, 1, -1), "$000000010000001000PAN", "the collected levy"},
      {RefundItem, line(L"PAN", 1, 1, 31), "d3000000010000001000PAN", "refund at rate 3"},
      {RefundItem, line(L"PAN", 1, 1, -5), "d4000000010000001000PAN", "refund of the levy"},
      {AnularItem, line(L"PAN", 1, 1, 16), "\241000000010000001000PAN", "void at rate 1"},
      {AnularItem, line(L"PAN", 1, 1, -1), "\244000000010000001000PAN", "void of the levy"},
      {PasarItem, line(L"", 1, 0, 0), " 000000010000000000", "no quantity and no description"},
      {PasarItem, line(L"X", 1.005, 1.0005, 0), " 000000010100001001X", "decimal, half up"},
      {PasarItem, line(L"X", -2.5, 1, 0), " -000000025000001000X", "a price may be negative"},
      {PasarItem, line(L"X", 123456789.5, 1, 0), " 1234567895000001000X",
       "a price fills its field"},
      {PasarItem, line(L"X", 1234567890.5, 1, 0), " 12345678905000001000X", "and is never cut"},
      {PasarItem, line(L"Ca\u00F1a", 1, 1, 0), " 000000010000001000Ca\361a", "one byte a letter"},
      {PasarItem, line(std::wstring(30, L'x'), 1, 1, 0),
       " 000000010000001000" + std::string(28, 'x'), "a description is cut, and never padded"},
  };
  for (const auto& item : kCases) {
    RatedBench bench;
    EXPECT_EQ(item.method(bench.session(), item.line), 0) << item.reason;
    EXPECT_EQ(bench.commands(), Sent{item.command}) << item.reason;
  }
}

TEST(ClassicItem, WidthsFollowTheSettings) {
  RatedBench bench({{L"DigitosPrecio", L"6"},
                    {L"DecimalesPrecio", L"1"},
                    {L"DigitosCantidad", L"5"},
                    {L"DecimalesCantidad", L"2"},
                    {L"ColumnasDescripcion", L"4"}});
  PasarItem(bench.session(), line(L"NARANJAS", 12.5, 2, 16));
  EXPECT_EQ(bench.commands(), Sent{"!00012500200NARA"});
}

TEST(ClassicItem, NegativeQuantityIsRefusedWithTheMethodsName) {
  const struct {
    ClassicMethod method;
    std::wstring name;
  } kCases[] = {
      {PasarItem, L"PasarItem"}, {RefundItem, L"RefundItem"}, {AnularItem, L"AnularItem"}};
  for (const auto& item : kCases) {
    RatedBench bench;
    EXPECT_EQ(item.method(bench.session(), line(L"PAN", 1, -0.001, 16)), pfClientError);
    EXPECT_EQ(bench.outcome().pfError, pfClientError);
    EXPECT_EQ(bench.outcome().DescripcionError,
              L"Argumento inv\u00E1lido (cantidad negativa) en " + item.name);
    EXPECT_TRUE(bench.printer().commands().empty()) << "not even the rates are asked for";
  }
}

TEST(ClassicItem, RateThatIsNoByteRaisesAndSendsNothing) {
  const struct {
    const wchar_t* index;
    int error;
  } kCases[] = {{L"-33", 5}, {L"-32", 0}, {L"223", 0}, {L"224", 5}};
  for (const auto& [index, error] : kCases) {
    DocumentBench bench({{L"IndicePercibido", index}});
    EXPECT_EQ(errorOf([&] { PasarItem(bench.session(), line(L"PAN", 1, 1, -1)); }), error) << index;
    EXPECT_EQ(bench.printer().commands().empty(), error != 0) << index;
  }
}

TEST(GeneralItem, FieldsStandBetweenBarsWithDecimalCommas) {
  const struct {
    const wchar_t* kind;
    ItemLine line;
    std::wstring code;
    std::string command;
    const char* reason;
  } kCases[] = {
      {kInvoiceLine, line(L"PAN", 12.5, 2, 16), L"ABC", "F+112,50||2,000|||ABC|PAN", "with a code"},
      {kInvoiceLine, line(L"PAN", 12.5, 2, 16), L"", "F+112,50||2,000||PAN", "without a code"},
      {kInvoiceVoid, line(L"PAN", 1000, 1, 0), L"", "F-01000,00||1,000||PAN", "no grouping"},
      {kCreditLine, line(L"PAN", 0.5, 0.25, 8), L"X", "C+20,50||0,250|||X|PAN", "below one"},
      {kCreditVoid, line(L"PAN", 1, -1, -1), L"", "C-41,00||-1,000||PAN", "quantity unchecked"},
      {L"Z9", line(L"P.A.N", 1, 1, 31), L"1.5", "Z931,00||1,000|||1.5|P.A.N", "texts keep points"},
      {kInvoiceLine, line(L"X", 0.125, 1.0005, 0), L"", "F+00,13||1,001||X", "half away from zero"},
  };
  for (const auto& item : kCases) {
    RatedBench bench({{L"ColumnasDescripcion", L"4"}});  // sent whole all the same
    bench.world().locale.locale = venezuelan();
    EXPECT_EQ(detalleGeneral(bench.session(), item.kind, general(item.line, item.code)), 0)
        << item.reason;
    EXPECT_EQ(bench.commands(), Sent{item.command}) << item.reason;
  }
}

TEST(RateIndex, ConfiguredRatesComeBeforeThePrinters) {
  const struct {
    Lines configured;
    double rate;
    std::int16_t index;
    std::size_t questions;
    const char* reason;
  } kCases[] = {
      {{L"0", L"8", L"16"}, 8.05, 1, 0, "within a tenth"},
      {{L"0", L"8", L"16"}, 7.95, 1, 0, "from below"},
      {{L"0", L"9", L"12"}, 8.1, 0, 1, "8.1 and the printer's 8 lie a tenth apart, exactly"},
      {{L"0", L"9", L"12"}, 7.9, 0, 1, "from below too"},
      {{L"8.1", L"8"}, 8.05, 0, 0, "the first of two"},
      {{L"12", L"0"}, 0, 1, 0, "exempt wherever it stands"},
      {{L"12"}, 16, 1, 1, "none fits: the printer's first"},
      {{L"12"}, 30.95, 3, 1, "none fits: the printer's third"},
      {{}, 8, 2, 1, "none configured"},
      {{}, 0, 0, 1, "exempt when nothing fits"},
      {{}, 99, 0, 1, "unknown to all"},
      {{L"0", L"8"}, -0.01, 4, 0, "any rate below zero is the levy"},
  };
  for (const auto& item : kCases) {
    DocumentBench bench;
    bench.configureRates(item.configured);
    EXPECT_EQ(IndiceTasa(bench.session(), item.rate), item.index) << item.reason;
    EXPECT_EQ(bench.printer().commands(), Sent(item.questions, "S3")) << item.reason;
  }
}

TEST(RateIndex, PrintersRatesAreAskedForOnce) {
  DocumentBench bench;
  EXPECT_EQ(IndiceTasa(bench.session(), 16), 1);
  EXPECT_EQ(IndiceTasa(bench.session(), 31), 3);
  EXPECT_EQ(bench.printer().commands(), Sent{"S3"});
}

TEST(RateIndex, SubstituteRatesMatchNothingAndAreAskedForAgain) {
  DocumentBench bench;
  bench.silence("S3");
  EXPECT_EQ(IndiceTasa(bench.session(), 0.05), 0) << "the substitute's zero rate is no rate 1";
  bench.printer().answers["S3"] = usualRates();
  EXPECT_EQ(IndiceTasa(bench.session(), 16), 1);
}

}  // namespace
}  // namespace corvid
