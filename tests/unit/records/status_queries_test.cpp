#include "records/status_queries.h"

#include "support/document_bench.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvid {
namespace {

using Sent = std::vector<std::string>;

const char* const kShortS1 = "S112\n0012345\n3\n4\n5\n6\n7\n8\nJ-9\nZ7A10\n240517\n1030\n1\n2";
constexpr const wchar_t* kFakeSection = L"Config\\NimbusPF\\Response1";

// What a printer makes of a query, and whether a real record comes of it.
struct Case {
  Answer answer;
  bool isReal;
  const char* reason;
};

TEST(StatusQuery, FirstRecordHoldsTheReplyOrTheSubstitute) {
  const Case cases[] = {
      {blockOf(kShortS1), true, "a whole reply"},
      {{}, false, "silence"},
      {{"\x15"}, false, "refused"},
      {{"\x06"}, false, "merely acknowledged"},
      {blockOf(""), false, "an empty block"},
      {blockOf("pfError"), false, "the word for a failed reply"},
      {blockOf("\n\n\n"), false, "empty fields"},
  };
  for (const Case& item : cases) {
    DocumentBench bench;
    bench.world().settings.set(kFakeSection, L"Serial", L"FAKE");
    bench.printer().answers["S1"] = item.answer;
    const Response1Values values = Response1(bench.session())->values;
    EXPECT_EQ(values.Serial, item.isReal ? L"Z7A10" : L"FAKE") << item.reason;
    EXPECT_EQ(values.numeroCajero, item.isReal ? 12 : 0) << item.reason;
    EXPECT_EQ(bench.commands(), Sent{"S1"}) << item.reason;
  }
}

TEST(StatusQuery, ThirdRecordHoldsTheReplyOrTheSubstitute) {
  const Case cases[] = {
      {usualRates(), true, "a whole reply"},
      {{}, false, "silence"},
      {{"\x15"}, false, "refused"},
      {{"\x06"}, false, "merely acknowledged"},
      {blockOf(""), false, "an empty block"},
      {blockOf("pfError"), false, "the word for a failed reply"},
  };
  for (const Case& item : cases) {
    DocumentBench bench;
    bench.printer().answers["S3"] = item.answer;
    const auto record = Response3(bench.session());
    EXPECT_EQ(record->values.isFake, !item.isReal) << item.reason;
    EXPECT_EQ(record->values.ValorTasa1, item.isReal ? 16 : 0) << item.reason;
    EXPECT_EQ(record->Flag(21), item.isReal ? 0 : -1) << item.reason;
  }
}

TEST(StatusQuery, TestAndUncheckedModeGiveSubstitutesAndSendNothing) {
  for (const wchar_t* mode : {L"TestMode", L"SkipChecks"}) {
    DocumentBench bench({{mode, L"True"}});
    bench.world().settings.set(kFakeSection, L"Serial", L"FAKE");
    EXPECT_EQ(Response1(bench.session())->values.Serial, L"FAKE");
    EXPECT_TRUE(Response3(bench.session())->values.isFake);
    EXPECT_TRUE(bench.printer().commands.empty());
    EXPECT_TRUE(bench.world().views.created.empty() ||
                bench.world().views.created.front()->lines.empty());
  }
}

TEST(StatusQuery, BadSubstituteSettingIsNotRaised) {
  DocumentBench bench({{L"TestMode", L"True"}});
  bench.world().settings.set(kFakeSection, L"numeroCajero", L"none");
  EXPECT_EQ(Response1(bench.session())->values.RIF, L"");
}

TEST(StatusQuery, ClosedSessionGivesSubstitutes) {
  DocumentBench bench;
  bench.session().Cerrar();
  EXPECT_TRUE(Response3(bench.session())->values.isFake);
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
  EXPECT_EQ(Response1(bench.session())->values.RIF, L"J-12345678-9");
}

TEST(StatusQuery, EachCallGivesAFreshRecord) {
  DocumentBench bench;
  const auto first = Response3(bench.session());
  first->values.ValorTasa1 = 99;
  EXPECT_EQ(Response3(bench.session())->values.ValorTasa1, 16);
}

TEST(StatusQuery, SessionReadsSerialAndRatesThroughTheRecords) {
  DocumentBench bench;
  bench.printer().answers["S1"] = blockOf(kShortS1);
  RecordStatusSource source;
  EXPECT_EQ(source.readSerial(bench.session()), L"Z7A10");
  const std::shared_ptr<RateRecord> rates = source.readRates(bench.session());
  EXPECT_EQ(rates->rate(3), 31);
  EXPECT_FALSE(rates->isSubstitute());
}

}  // namespace
}  // namespace corvid
