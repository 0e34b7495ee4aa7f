// Replies as fields, texts and rows.
#include "support/session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

const Lines kFailed = {L"pfError"};

TEST(Retrieval, FieldsAreWhatStandsBetweenStxAndTheEnd) {
  const struct {
    Answer reply;
    Lines fields;
    const char* reason;
  } kCases[] = {
      {{"\2A\nB\3\n"}, {L"A", L"B"}, "two fields"},
      {{"\2A\n\n\3\n"}, {L"A", L"", L""}, "empty fields stay"},
      {{"~~\2A\3"}, {L"A"}, "noise in front is cut"},
      {{"~~\6"}, {}, "acknowledged behind noise: no remains of it"},
      {{"A\nB\3"}, {L"A", L"B"}, "no STX at all"},
      {{"\2\3\3"}, {}, "an empty block has no field"},
      {{"\6"}, {}, "a merely acknowledged query"},
      {{"\2A\4"}, {L"A"}, "ended by EOT"},
  };
  for (const auto& item : kCases) {
    OpenBench bench;
    bench.printer().answersToBlock = {item.reply};
    EXPECT_EQ(bench.exchange().GetResponse(L"S1"), item.fields) << item.reason;
  }
}

TEST(Retrieval, UncheckedModeAsksNothing) {
  OpenBench bench({{L"SkipChecks", L"True"}});
  EXPECT_EQ(bench.exchange().GetResponse(L"S1"), (Lines{L"VOID"}));
  EXPECT_EQ(bench.exchange().GetMultipleResponses(L"U3A"), (std::vector<Lines>{{L"VOID"}}));
  EXPECT_TRUE(bench.world().serial.written().empty());
}

TEST(Retrieval, TextBeginsWithTheSeparator) {
  OpenBench bench;
  bench.printer().answers["S1"] = blockOf("A\nB");
  EXPECT_EQ(bench.exchange().GetResponseString(L"S1", L"|"), L"|A|B");
  EXPECT_EQ(bench.exchange().GetResponseString(L"S1", L""), L"\nA\nB");
}

TEST(Retrieval, EachFurtherBlockIsAcknowledgedOnce) {
  OpenBench bench;
  bench.printer().answersToBlock = {{"\2A\nB\x17\x17"}};
  bench.printer().answersToAck = {{"~\2C\x17\3"}, {"\2D\nE\3"}};
  EXPECT_EQ(bench.exchange().GetMultipleResponses(L"U3A"),
            (std::vector<Lines>{{L"A", L"B"}, {L"C"}, {L"D", L"E"}}));
  EXPECT_EQ(bench.printer().acks, 2U);
}

TEST(Retrieval, BlockThatDoesNotArriveEndsTheRows) {
  for (const Answer& broken : {Answer{}, Answer{"\2half"}, Answer{"\x15"}, Answer{"\6"}}) {
    OpenBench bench({{L"TimeOut", L"1"}});
    bench.printer().answersToBlock = {blockOf("A", kEtb)};
    bench.printer().answersToAck = {broken, blockOf("late")};
    EXPECT_EQ(bench.exchange().GetMultipleResponses(L"U3A"), (std::vector<Lines>{{L"A"}}));
    EXPECT_EQ(bench.printer().acks, 1U);
  }
}

TEST(Retrieval, EarlierBlockDoesNotStartALoop) {
  OpenBench bench({{L"TimeOut", L"1"}});
  bench.printer().answersToBlock = {blockOf("A", kEtb)};
  static_cast<void>(bench.exchange().GetResponse(L"U3A"));
  ASSERT_EQ(bench.outcome().resultFlag, ETB);
  bench.session().Cerrar();
  EXPECT_EQ(bench.exchange().GetMultipleResponses(L"U3A"), (std::vector<Lines>{kFailed}));
}

TEST(Retrieval, PrinterThatNeverEndsIsLeft) {
  OpenBench bench;
  bench.printer().answersToBlock = {blockOf("A", kEtb)};
  bench.printer().answerToEveryAck = blockOf("A", kEtb);
  EXPECT_EQ(bench.exchange().GetMultipleResponses(L"U3A").size(), 32768U);
}

TEST(Retrieval, HostThatQuitsEndsTheRows) {
  OpenBench bench;
  bench.printer().answersToBlock = {blockOf("A", kEtb)};
  bench.printer().answerToEveryAck = blockOf("A", kEtb);
  bench.world().pump.whenYielded = [&] {
    bench.world().pump.isQuitting = bench.printer().acks >= 2;
  };
  EXPECT_EQ(bench.exchange().GetMultipleResponses(L"U3A").size(), 3U);
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
}

// What they say beside the steps of the command itself.
TEST(Retrieval, TraceTellsTheFieldsAndWhyThereAreNone) {
  OpenBench bench({{L"IsDebug", L"True"}, {L"DebugInmediato", L"True"}, {L"LimiteEspera", L"1"}});
  const auto told = [&] {
    Lines lines = bench.trace();
    std::erase_if(lines, [](const std::wstring& line) {
      return line != L" -> ACK" && (line.find(L"Response") == std::wstring::npos ||
                                    line.starts_with(L"ResponseComplete"));
    });
    bench.clearTrace();
    return lines;
  };
  bench.printer().answersToBlock = {blockOf("A\nB", kEtb)};
  bench.printer().answersToAck = {blockOf("C")};
  static_cast<void>(bench.exchange().GetMultipleResponses(L"U3A"));
  EXPECT_EQ(told(), (Lines{L"GetMultipleResponses: U3A", L"GetResponse: U3A",
                           L"GetResponse. After Execute (1), s = A[010]B[ETB]",
                           L"GetResponse. After Execute (2), s = A[010]B",
                           L"GetResponse. UBound = 1", L" -> ACK"}));
  bench.printer().answersToStatus = {Answer{}};
  static_cast<void>(bench.exchange().GetResponse(L"S1"));
  EXPECT_EQ(told(), (Lines{L"GetResponse: S1", L"@GetResponse pfError = [001]"}));
  bench.exchange().state().skipChecks = true;
  static_cast<void>(bench.exchange().GetResponse(L"S1"));
  EXPECT_EQ(told(), (Lines{L"GetResponse: S1", L"@GetResponse with NO_STATUS_CHECK = VOID"}));
}

TEST(Retrieval, RowsJoinWithSeparatorsBetweenNeighboursOnly) {
  OpenBench bench;
  bench.printer().answers["U3A"] = blockOf("A\nB", kEtb);
  bench.printer().answerToEveryAck = blockOf("C");
  EXPECT_EQ(bench.exchange().GetMultipleResponsesStr(L"U3A", std::nullopt, std::nullopt),
            L"A\37B\36C");
  EXPECT_EQ(bench.exchange().GetMultipleResponsesStr(L"U3A", L"", L"/"), L"AB/C")
      << "an empty separator that is given counts";
}

}  // namespace
}  // namespace corvid
