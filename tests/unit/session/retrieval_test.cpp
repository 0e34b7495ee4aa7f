// Replies as fields, texts and rows.
#include "session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

const Lines kFailed = {L"pfError"};

struct ResponseCase {
  Answer reply;
  Lines fields;
  const char* reason;
};

TEST(Retrieval, FieldsAreWhatStandsBetweenStxAndTheEnd) {
  const ResponseCase cases[] = {
      {{"\x02"
        "A\nB\x03\x0A"},
       {L"A", L"B"},
       "two fields"},
      {{"\x02"
        "A\n\n\x03\x0A"},
       {L"A", L"", L""},
       "empty fields stay"},
      {{"~~\x02"
        "A\x03"},
       {L"A"},
       "noise in front is cut"},
      {{"A\nB\x03"}, {L"A", L"B"}, "no STX at all"},
      {{"\x02\x03\x03"}, {}, "an empty block has no field"},
      {{"\x06"}, {}, "a merely acknowledged query"},
      {{"\x02"
        "A\x04"},
       {L"A"},
       "ended by EOT"},
  };
  for (const ResponseCase& item : cases) {
    SessionBench bench;
    bench.open();
    bench.printer().answersToBlock = {item.reply};
    EXPECT_EQ(bench.session().GetResponse(L"S1"), item.fields) << item.reason;
  }
}

TEST(Retrieval, FailedExchangeIsOneField) {
  SessionBench bench({{L"TimeOut", L"1"}});
  EXPECT_EQ(bench.session().GetResponse(L"S1"), kFailed) << "closed";
  bench.open();
  bench.printer().answersToStatus = {{}};
  EXPECT_EQ(bench.session().GetResponse(L"S1"), kFailed) << "no status";
  EXPECT_TRUE(bench.printer().blocks.empty());
  bench.printer().answersToBlock.assign(7, {});
  EXPECT_EQ(bench.session().GetResponse(L"S1"), kFailed) << "no answer";
}

TEST(Retrieval, UncheckedModeAsksNothing) {
  SessionBench bench({{L"SkipChecks", L"True"}});
  bench.open();
  EXPECT_EQ(bench.session().GetResponse(L"S1"), (Lines{L"VOID"}));
  EXPECT_EQ(bench.session().GetMultipleResponses(L"U3A"), (std::vector<Lines>{{L"VOID"}}));
  EXPECT_TRUE(bench.world().serial.written().empty());
}

TEST(Retrieval, TextBeginsWithTheSeparator) {
  SessionBench bench;
  bench.open();
  bench.printer().answersToBlock = {{"\x02"
                                     "A\nB\x03"},
                                    {"\x02"
                                     "A\nB\x03"}};
  EXPECT_EQ(bench.session().GetResponseString(L"S1", L"|"), L"|A|B");
  EXPECT_EQ(bench.session().GetResponseString(L"S1", L""), L"\nA\nB");
}

TEST(Retrieval, EachFurtherBlockIsAcknowledgedOnce) {
  SessionBench bench;
  bench.open();
  bench.printer().answersToBlock = {
      {"\x02"
       "A\nB\x17\x17"}};
  bench.printer().answersToAck = {{"~\x02"
                                   "C\x17\x03"},
                                  {"\x02"
                                   "D\nE\x03"}};
  EXPECT_EQ(bench.session().GetMultipleResponses(L"U3A"),
            (std::vector<Lines>{{L"A", L"B"}, {L"C"}, {L"D", L"E"}}));
  EXPECT_EQ(bench.printer().acks, 2U);
}

TEST(Retrieval, BlockThatDoesNotArriveEndsTheRows) {
  const Answer broken[] = {{}, {"\x02half"}, {"\x15"}, {"\x06"}};
  for (const Answer& answer : broken) {
    SessionBench bench({{L"TimeOut", L"1"}});
    bench.open();
    bench.printer().answersToBlock = {
        {"\x02"
         "A\x17"}};
    bench.printer().answersToAck = {answer,
                                    {"\x02"
                                     "late\x03"}};
    EXPECT_EQ(bench.session().GetMultipleResponses(L"U3A"), (std::vector<Lines>{{L"A"}}));
    EXPECT_EQ(bench.printer().acks, 1U);
  }
}

TEST(Retrieval, EarlierBlockDoesNotStartALoop) {
  SessionBench bench({{L"TimeOut", L"1"}});
  bench.open();
  bench.printer().answersToBlock = {
      {"\x02"
       "A\x17"}};
  static_cast<void>(bench.session().GetResponse(L"U3A"));
  ASSERT_EQ(bench.outcome().resultFlag, ETB);
  bench.session().Cerrar();
  EXPECT_EQ(bench.session().GetMultipleResponses(L"U3A"), (std::vector<Lines>{kFailed}));
}

TEST(Retrieval, PrinterThatNeverEndsIsLeft) {
  SessionBench bench;
  bench.open();
  bench.printer().answersToBlock = {
      {"\x02"
       "A\x17"}};
  bench.printer().answerToEveryAck = Answer{
      "\x02"
      "A\x17"};
  EXPECT_EQ(bench.session().GetMultipleResponses(L"U3A").size(), 65536U);
}

TEST(Retrieval, RowsJoinWithSeparatorsBetweenNeighboursOnly) {
  SessionBench bench;
  bench.open();
  const std::deque<Answer> first = {{"\x02"
                                     "A\nB\x17"},
                                    {"\x02"
                                     "A\nB\x17"}};
  bench.printer().answersToBlock = first;
  bench.printer().answersToAck = {{"\x02"
                                   "C\x03"},
                                  {"\x02"
                                   "C\x03"}};
  EXPECT_EQ(bench.session().GetMultipleResponsesStr(L"U3A", std::nullopt, std::nullopt),
            L"A\x1f"
            L"B\x1e"
            L"C");
  EXPECT_EQ(bench.session().GetMultipleResponsesStr(L"U3A", L"", L"/"), L"AB/C")
      << "an empty separator that is given counts";
}

}  // namespace
}  // namespace corvid
