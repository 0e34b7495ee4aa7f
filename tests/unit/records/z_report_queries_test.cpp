#include "records/z_report_queries.h"

#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvid {
namespace {

Decimal number(int value) { return Decimal::fromInteger(value); }

// A row of a Z report; its invoice has the Z report's number, and each amount one hundredth.
std::string row(int zReport) {
  std::string text = std::to_string(zReport) + "\n240517\n1030\n" + std::to_string(zReport);
  text += "\n240517\n1030";
  for (int field = 6; field < 28; ++field) text += "\n1";
  return text;
}

// A reply of a row with more after it.
Answer firstOf(int zReport) { return blockOf(row(zReport), kEtb); }

std::vector<int> numbersOf(const std::vector<std::shared_ptr<ZReportRecord>>& records) {
  std::vector<int> numbers;
  numbers.reserve(records.size());
  for (const auto& record : records) numbers.push_back(record->values.numeroCierre);
  return numbers;
}

const char* const kRange = "U3A000005000012";
const char* const kSeventh = "U3A000007000007";

std::vector<int> zReportsOfRange(DocumentBench& bench) {
  return numbersOf(reportesZMF(bench.exchange(), number(5), number(12)));
}

TEST(Closing, GivesTheSummaryOrNothing) {
  const struct {
    Answer answer;
    bool isClosed;
    const char* reason;
  } kCases[] = {
      {{"\x06"}, true, "acknowledged"},
      {blockOf("done"), true, "answered with a block"},
      {{"\x15"}, false, "refused"},
      {{}, false, "silence"},
  };
  for (const auto& item : kCases) {
    DocumentBench bench;
    bench.printer().answers["I0Z"] = item.answer;
    bench.printer().answers["U0Z"] = blockOf("321\n240517");
    const auto record = CerrarZ(bench.exchange());
    EXPECT_EQ(record ? record->values.numeroUltimoZ : 0, item.isClosed ? 321 : 0) << item.reason;
    EXPECT_EQ(bench.commands(), item.isClosed ? (Sent{"I0Z", "U0Z"}) : Sent{"I0Z"}) << item.reason;
  }
}

TEST(Closing, AcceptedBehindARefusalIsAClosing) {
  DocumentBench bench;
  bench.exchange().outcome().resultFlag = NAK;  // of an earlier command
  EXPECT_NE(CerrarZ(bench.exchange()), nullptr);
}

TEST(Closing, SummaryThatCannotBeReadIsANewRecord) {
  DocumentBench bench;
  bench.silence("U0Z");
  EXPECT_EQ(CerrarZ(bench.exchange())->values.numeroUltimoZ, -1);
  EXPECT_EQ(loadResumenZ(bench.exchange())->values.numeroUltimoZ, -1);
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
}

TEST(MemoryQuery, GivesOneRecordForEachBlock) {
  DocumentBench bench;
  bench.printer().answers[kRange] = firstOf(5);
  bench.printer().answersToAck = {firstOf(7), blockOf(row(12))};
  EXPECT_EQ(zReportsOfRange(bench), (std::vector<int>{5, 7, 12}));
  EXPECT_EQ(bench.printer().commands(), Sent{kRange});
  EXPECT_EQ(bench.printer().acks, 2U);
}

TEST(MemoryQuery, FailureGivesNoRecordAtAll) {
  DocumentBench bench;
  ZReportRecord record(bench.thread());
  record.values.numeroCierre = 5;
  for (const FailedAnswer& failed : kFailedAnswers) {
    bench.printer().answers[kRange] = failed.answer;
    EXPECT_TRUE(zReportsOfRange(bench).empty()) << failed.reason;
    bench.printer().answers[kSeventh] = failed.answer;
    EXPECT_EQ(loadReporteZMF(bench.exchange(), number(7)), nullptr) << failed.reason;
    EXPECT_FALSE(record.load(bench.exchange(), number(7))) << failed.reason;
    EXPECT_EQ(record.values.numeroCierre, 5) << "untouched: " << failed.reason;
  }
}

TEST(MemoryQuery, LimitsHaveSixDigitsOrMore) {
  const struct {
    double desde;
    double hasta;
    const char* command;
  } kCases[] = {
      {5, 12, "U3A000005000012"},
      {0, 1234567, "U3A0000001234567"},
      {-3, 2.5, "U3A-000003000003"},
  };
  for (const auto& item : kCases) {
    DocumentBench bench;
    bench.printer().answers[item.command] = blockOf(row(1));
    const auto records = reportesZMF(bench.exchange(), Decimal::fromDouble(item.desde),
                                     Decimal::fromDouble(item.hasta));
    EXPECT_EQ(numbersOf(records), std::vector<int>{1}) << item.command;
  }
}

TEST(MemoryQuery, RowThatCannotBeReadIsRaisedAndTheSessionGoesOn) {
  DocumentBench bench;
  bench.printer().answers[kRange] = firstOf(5);
  bench.printer().answersToAck = {blockOf("6\n240517")};
  EXPECT_EQ(errorOf([&] { zReportsOfRange(bench); }), 9);
  bench.printer().answers[kSeventh] = blockOf("40000");
  const auto load = [&] { static_cast<void>(loadReporteZMF(bench.exchange(), number(7))); };
  EXPECT_EQ(errorOf(load), 6);
  bench.printer().answers[kRange] = blockOf(row(5));
  EXPECT_EQ(zReportsOfRange(bench), std::vector<int>{5});
}

TEST(MemoryQuery, RowsBeyondA16BitCountAreAnOverflow) {
  for (const std::size_t count : {32767U, 32768U}) {
    DocumentBench bench;
    bench.printer().answers[kRange] = blockOf("x", kEtb);
    bench.printer().answersToAck.assign(count - 2, blockOf("x", kEtb));
    bench.printer().answersToAck.push_back(blockOf("x"));
    const int error = errorOf([&] { zReportsOfRange(bench); });
    EXPECT_EQ(error, count > 32767 ? 6 : 13) << count << " rows";
  }
}

TEST(MemoryQuery, OneZReportIsTheFirstRowOfItsRange) {
  DocumentBench bench;
  bench.printer().answers[kSeventh] = firstOf(7);
  bench.printer().answersToAck = {blockOf(row(8))};
  const auto record = loadReporteZMF(bench.exchange(), number(7));
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->values.numeroCierre, 7);
  EXPECT_EQ(bench.printer().commands(), Sent{kSeventh});
}

}  // namespace
}  // namespace corvid
