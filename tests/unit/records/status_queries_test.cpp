// The queries for records, for single counters and for rates.
#include "records/status_queries.h"

#include "basic/format.h"
#include "record_bench.h"
#include "records/z_report_queries.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

using S = Exchange;

constexpr const wchar_t* kFakeSection = L"Config\\NimbusPF\\Response1";
const char* const kCounters = "S112\n0012345\n3\n4\n5\n6\n7\n8\nJ-9\nZ7A10\n240517\n1030\n1\n2";
const char* const kState = "S2 0001500\n101\nx\n2.5\n104\n5\n6";

std::wstring first(S& session) {
  const CountersValues values = Response1(session)->values;
  return values.Serial + L" " + std::to_wstring(values.numeroCajero);
}
std::wstring second(S& session) { return std::to_wstring(Response2(session)->values.tipoTrans); }
std::wstring state(S& session) {
  return std::to_wstring(getEstadoDocumento(session)->values.estado);
}
std::wstring third(S& session) {
  const auto record = Response3(session);
  return toText(record->values.ValorTasa1, Locale{}) + L" " + std::to_wstring(record->Flag(21)) +
         (record->values.isFake ? L" fake" : L"");
}
std::wstring fourth(S& session) {
  const auto record = Response4(session);
  return std::to_wstring(record->nMedios()) + (record->isFake ? L" fake" : L"");
}

struct Query {
  std::wstring (*result)(S& session);
  const char* command;
  Answer answer;
  std::wstring read;
  std::wstring failed;
};
const Query kQueries[] = {
    {first, "S1", blockOf(kCounters), L"Z7A10 12", L"FAKE 0"},
    {second, "S2", blockOf(kState), L"6", L"-1"},
    {third, "S3", usualRates(), L"16 0", L"0 -1 fake"},
    {fourth, "S4", blockOf("S4100\n200"), L"2", L"0 fake"},
    {state, "S2", blockOf(kState), L"6", L"0"},
    {[](S& s) { return std::to_wstring(numeroUltimaFactura(s)); }, "S1", blockOf(kCounters), L"3",
     L"-1"},
    {[](S& s) { return std::to_wstring(NumeroUltimoCierre(s)); }, "S1", blockOf(kCounters), L"7",
     L"-1"},
    {[](S& s) { return toText(tasa(s, Decimal::fromInteger(1)), Locale{}); }, "S3", usualRates(),
     L"16", L"-1"},
};

TEST(StatusQuery, GivesTheReplyOrTheSubstitute) {
  for (const Query& query : kQueries) {
    DocumentBench bench;
    bench.world().settings.set(kFakeSection, L"Serial", L"FAKE");
    bench.printer().answers[query.command] = query.answer;
    EXPECT_EQ(query.result(bench.exchange()), query.read);
    EXPECT_EQ(bench.printer().commands(), Sent{query.command});
    for (const FailedAnswer& failed : kFailedAnswers) {
      bench.printer().answers[query.command] = failed.answer;
      EXPECT_EQ(query.result(bench.exchange()), query.failed) << failed.reason;
      EXPECT_EQ(bench.printer().commands().back(), query.command) << failed.reason;
    }
  }
}

TEST(StatusQuery, BadSubstituteSettingIsNotRaised) {
  DocumentBench bench({{L"TestMode", L"True"}});
  bench.world().settings.set(kFakeSection, L"numeroCajero", L"none");
  EXPECT_EQ(Response1(bench.exchange())->values.RIF, L"");
}

TEST(StatusQuery, ReplyThatCannotBeReadIsRaisedAndTheSessionGoesOn) {
  DocumentBench bench;
  bench.printer().answers["S2"] = blockOf("S2 100\nx");
  bench.printer().answers["S4"] = blockOf("S4x");
  S& session = bench.exchange();
  EXPECT_EQ(errorOf([&] { second(session); }), 13);
  EXPECT_EQ(errorOf([&] { state(session); }), 13);
  EXPECT_EQ(errorOf([&] { fourth(session); }), 13);
  bench.printer().answers["S2"] = blockOf(kState);
  EXPECT_EQ(second(session), L"6");
}

// The number that a query gives, or "error" and the number that it throws.
template <typename Call>
std::wstring toldBy(Call call) {
  double value = 0;
  const std::int32_t error = errorOf([&] { value = call(); });
  return error == 0 ? toText(value, Locale{}) : L"error " + std::to_wstring(error);
}

TEST(CounterQuery, ReadsItsFieldInEveryLayout) {
  const struct {
    const char* reply;
    std::wstring invoice;
    std::wstring zReport;
    const char* reason;
  } kCases[] = {
      {"S101\n1\n102\n3\n4\n5\n106\n7\nJ\nZ\n240517\n1030", L"102", L"106", "the short layout"},
      {"S101\n1\n202\n3\n4\n5\n206\n7\n8\n9\n10\n11\nJ\nZ\n1030\n240517", L"202", L"206",
       "the long layout"},
      {"S101\n1\n2.5\n3\n4\n5\n-3.5 ", L"2", L"-4", "rounded half to even"},
      {"S101\n1\n2", L"2", L"error 9", "cut short"},
      {"S101\n1", L"error 9", L"error 9", "shorter still"},
      {"S101\n1\n\n3\n4\n5\nx", L"error 13", L"error 13", "no numbers"},
      {"S101\n1\n2147483648\n3\n4\n5\n2147483647", L"error 6", L"2147483647", "beyond 32 bits"},
  };
  for (const auto& item : kCases) {
    DocumentBench bench;
    bench.printer().answers["S1"] = blockOf(item.reply);
    S& session = bench.exchange();
    EXPECT_EQ(toldBy([&] { return numeroUltimaFactura(session); }), item.invoice) << item.reason;
    EXPECT_EQ(toldBy([&] { return NumeroUltimoCierre(session); }), item.zReport) << item.reason;
  }
}

TEST(RateQuery, IndexChoosesTheField) {
  const struct {
    double index;
    double rate;
    bool isSent;
  } kCases[] = {{0, 0, false}, {0.99, 0, false}, {-1, 0, false},  {3.01, 0, false},
                {4, 0, false}, {1e9, 0, false},  {1, 16, true},   {2, 8, true},
                {3, 31, true}, {1.5, 16, true},  {2.5, 31, true}, {1.6, 8, true}};
  for (const auto& item : kCases) {
    DocumentBench bench;
    EXPECT_EQ(tasa(bench.exchange(), Decimal::fromDouble(item.index)), item.rate) << item.index;
    EXPECT_EQ(bench.printer().commands(), item.isSent ? Sent{"S3"} : Sent{}) << item.index;
  }
}

TEST(RateQuery, RateIsTheLeadingNumberBehindTheKind) {
  const struct {
    const char* reply;
    std::wstring rate;
    const char* reason;
  } kCases[] = {
      {"1\n11600", L"16", "a kind and hundredths"},
      {"1\nx12.5abc", L"0.125", "what follows is left"},
      {"1\n2-100", L"-1", "negative"},
      {"1\n2abc", L"0", "letters"},
      {"1\n", L"0", "an empty field"},
      {"1\n21E999", L"error 6", "beyond a double"},
      {"1\n2&H100000000", L"error 6", "beyond 32 bits"},
      {"11600", L"error 9", "no second field"},
  };
  for (const auto& item : kCases) {
    DocumentBench bench;
    bench.printer().answers["S3"] = blockOf(item.reply);
    const auto query = [&] { return tasa(bench.exchange(), Decimal::fromInteger(2)); };
    EXPECT_EQ(toldBy(query), item.rate) << item.reason;
  }
}

TEST(QueryWithoutPrinter, RecordsAreSubstitutesAndOnlyTestModePreviewsTheOthers) {
  for (const std::wstring mode : {L"TestMode", L"SkipChecks"}) {
    DocumentBench bench({{mode.c_str(), L"True"}});
    bench.world().settings.set(kFakeSection, L"Serial", L"FAKE");
    S& session = bench.exchange();
    EXPECT_EQ(first(session), L"FAKE 0");
    EXPECT_EQ(second(session), L"-1");
    EXPECT_EQ(third(session), L"0 -1 fake");
    EXPECT_EQ(fourth(session), L"0 fake");
    const auto& views = bench.world().views.created;
    EXPECT_TRUE(views.empty() || views.front()->lines.empty());
    EXPECT_EQ(tasa(session, Decimal::fromInteger(1)), 0);
    EXPECT_EQ(state(session), L"0");
    EXPECT_TRUE(bench.printer().commands().empty());
    if (mode == L"SkipChecks") continue;
    EXPECT_EQ(errorOf([&] { static_cast<void>(numeroUltimaFactura(session)); }), 9);
    EXPECT_EQ(errorOf([&] { static_cast<void>(NumeroUltimoCierre(session)); }), 9);
    const auto closed = CerrarZ(session);
    ASSERT_NE(closed, nullptr);
    EXPECT_EQ(closed->values.numeroUltimoZ, -1);
    const auto rows = [&] { static_cast<void>(loadReporteZMF(session, Decimal())); };
    EXPECT_EQ(errorOf(rows), 13) << "\"Ok\" is no zReport";
    EXPECT_EQ(
        views.front()->lines,
        (Lines{L"GET RESPONSE: S3", L"GET RESPONSE: S2", L"GET RESPONSE: S1", L"GET RESPONSE: S1",
               L"I0Z", L"GET RESPONSE: U0Z", L"GET RESPONSE: U3A000000000000"}));
  }
}

}  // namespace
}  // namespace corvid
