// The queries about the open document, the payments, and single counters and rates.
#include "records/status_queries.h"
#include "support/document_bench.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace corvid {
namespace {

using Sent = std::vector<std::string>;

// What becomes of a query that brings no fields.
struct Failure {
  Answer answer;
  const char* reason;
};
const Failure kFailures[] = {
    {{}, "silence"},
    {{"\x15"}, "refused"},
    {{"\x06"}, "merely acknowledged"},
    {blockOf(""), "an empty block"},
    {blockOf("pfError"), "the word for a failed reply"},
};

const char* const kState = "S2 0001500\n101\nx\n2.5\n104\n5\n6";

TEST(DocumentQuery, SecondRecordHoldsTheReplyOrTheSubstitute) {
  DocumentBench bench;
  bench.printer().answers["S2"] = blockOf(kState);
  EXPECT_EQ(Response2(bench.session())->values.tipoTrans, 6);
  for (const Failure& item : kFailures) {
    bench.printer().answers["S2"] = item.answer;
    EXPECT_EQ(Response2(bench.session())->values.tipoTrans, -1) << item.reason;
  }
  EXPECT_EQ(bench.commands(), Sent{"S2"});
}

TEST(DocumentQuery, FourthRecordHoldsTheReplyOrTheSubstitute) {
  DocumentBench bench;
  bench.printer().answers["S4"] = blockOf("S4100\n200");
  EXPECT_EQ(Response4(bench.session())->nMedios(), 2);
  EXPECT_FALSE(Response4(bench.session())->isFake);
  for (const Failure& item : kFailures) {
    bench.printer().answers["S4"] = item.answer;
    EXPECT_TRUE(Response4(bench.session())->isFake) << item.reason;
  }
  EXPECT_EQ(bench.commands(), Sent{"S4"});
}

TEST(DocumentQuery, DocumentStateHoldsTheReplyOrNothing) {
  DocumentBench bench;
  bench.printer().answers["S2"] = blockOf(kState);
  EXPECT_EQ(getEstadoDocumento(bench.session())->values.estado, 6);
  for (const Failure& item : kFailures) {
    bench.printer().answers["S2"] = item.answer;
    EXPECT_EQ(getEstadoDocumento(bench.session())->values.estado, 0) << item.reason;
  }
}

TEST(DocumentQuery, ReplyThatCannotBeReadIsRaisedAndTheSessionGoesOn) {
  DocumentBench bench;
  bench.printer().answers["S2"] = blockOf("S2 100\nx");
  bench.printer().answers["S4"] = blockOf("S4x");
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(Response2(bench.session())); }), 13);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(getEstadoDocumento(bench.session())); }), 13);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(Response4(bench.session())); }), 13);
  bench.printer().answers["S2"] = blockOf(kState);
  EXPECT_EQ(Response2(bench.session())->values.tipoTrans, 6);
}

TEST(CounterQuery, ReadsItsFieldInEveryLayout) {
  const struct {
    const char* reply;
    std::int32_t invoice;
    int invoiceError;
    std::int32_t closure;
    int closureError;
    const char* reason;
  } kCases[] = {
      {"S101\n1\n102\n3\n4\n5\n106\n7\nJ\nZ\n240517\n1030", 102, 0, 106, 0, "the short layout"},
      {"S101\n1\n202\n3\n4\n5\n206\n7\n8\n9\n10\n11\nJ\nZ\n1030\n240517", 202, 0, 206, 0,
       "the long layout"},
      {"S101\n1\n2.5\n3\n4\n5\n-3.5 ", 2, 0, -4, 0, "rounded half to even"},
      {"S101\n1\n2", 2, 0, 0, 9, "cut short"},
      {"S101\n1", 0, 9, 0, 9, "shorter still"},
      {"S101\n1\n\n3\n4\n5\nx", 0, 13, 0, 13, "no numbers"},
      {"S101\n1\n2147483648\n3\n4\n5\n2147483647", 0, 6, 2147483647, 0, "beyond 32 bits"},
  };
  for (const auto& item : kCases) {
    DocumentBench bench;
    bench.printer().answers["S1"] = blockOf(item.reply);
    std::int32_t invoice = 0;
    std::int32_t closure = 0;
    EXPECT_EQ(errorNumberOf([&] { invoice = numeroUltimaFactura(bench.session()); }),
              item.invoiceError)
        << item.reason;
    EXPECT_EQ(errorNumberOf([&] { closure = NumeroUltimoCierre(bench.session()); }),
              item.closureError)
        << item.reason;
    EXPECT_EQ(invoice, item.invoice) << item.reason;
    EXPECT_EQ(closure, item.closure) << item.reason;
    EXPECT_EQ(bench.commands(), Sent{"S1"}) << item.reason;
  }
}

TEST(CounterQuery, FailureIsMinusOne) {
  DocumentBench bench;
  for (const Failure& item : kFailures) {
    bench.printer().answers["S1"] = item.answer;
    EXPECT_EQ(numeroUltimaFactura(bench.session()), -1) << item.reason;
    EXPECT_EQ(NumeroUltimoCierre(bench.session()), -1) << item.reason;
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
    EXPECT_EQ(tasa(bench.session(), Decimal::fromDouble(item.index)), item.rate) << item.index;
    EXPECT_EQ(bench.printer().commands, item.isSent ? Sent{"S3"} : Sent{}) << item.index;
  }
}

TEST(RateQuery, RateIsTheLeadingNumberBehindTheKind) {
  const struct {
    const char* field;
    double rate;
    int error;
    const char* reason;
  } kCases[] = {
      {"11600", 16, 0, "a kind and hundredths"},
      {"20825", 8.25, 0, "two decimals"},
      {"x12.5abc", 0.125, 0, "what follows is left"},
      {"2-100", -1, 0, "negative"},
      {"2abc", 0, 0, "letters"},
      {"2", 0, 0, "a kind alone"},
      {"", 0, 0, "an empty field"},
      {"2\x01", 0, 0, "a control character"},
      {"21E999", 0, 6, "beyond a double"},
      {"2&H100000000", 0, 6, "beyond 32 bits"},
  };
  for (const auto& item : kCases) {
    DocumentBench bench;
    bench.printer().answers["S3"] = blockOf(std::string("1\n") + item.field);
    double rate = 0;
    const auto query = [&] { rate = tasa(bench.session(), Decimal::fromInteger(2)); };
    EXPECT_EQ(errorNumberOf(query), item.error) << item.reason;
    EXPECT_EQ(rate, item.rate) << item.reason;
  }
}

TEST(RateQuery, FailureIsMinusOneAndAMissingFieldIsRaised) {
  DocumentBench bench;
  for (const Failure& item : kFailures) {
    bench.printer().answers["S3"] = item.answer;
    EXPECT_EQ(tasa(bench.session(), Decimal::fromInteger(1)), -1) << item.reason;
  }
  bench.printer().answers["S3"] = blockOf("11600");
  const auto second = [&] { static_cast<void>(tasa(bench.session(), Decimal::fromInteger(2))); };
  EXPECT_EQ(errorNumberOf(second), 9);
}

TEST(QueryInTestMode, RecordsAreSubstitutesAndTheOthersGoToThePreview) {
  DocumentBench bench({{L"TestMode", L"True"}});
  PrinterFiscal& session = bench.session();
  EXPECT_EQ(Response2(session)->values.tipoTrans, -1);
  EXPECT_TRUE(Response4(session)->isFake);
  EXPECT_TRUE(bench.world().views.created.front()->lines.empty());
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(numeroUltimaFactura(session)); }), 9);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(NumeroUltimoCierre(session)); }), 9);
  EXPECT_EQ(tasa(session, Decimal::fromInteger(1)), 0);
  EXPECT_EQ(getEstadoDocumento(session)->values.estado, 0);
  const Lines previewed = {L"GET RESPONSE: S1", L"GET RESPONSE: S1", L"GET RESPONSE: S3",
                           L"GET RESPONSE: S2"};
  EXPECT_EQ(bench.world().views.created.front()->lines, previewed);
}

TEST(QueryInUncheckedMode, SendsNothing) {
  DocumentBench bench({{L"SkipChecks", L"True"}});
  PrinterFiscal& session = bench.session();
  EXPECT_EQ(Response2(session)->values.tipoTrans, -1);
  EXPECT_TRUE(Response4(session)->isFake);
  EXPECT_EQ(tasa(session, Decimal::fromInteger(1)), 0);
  EXPECT_EQ(getEstadoDocumento(session)->values.estado, 0);
  EXPECT_TRUE(bench.printer().commands.empty());
}

}  // namespace
}  // namespace corvid
