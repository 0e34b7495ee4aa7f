#include "known_day.h"

#include <gtest/gtest.h>

namespace corvid::simulator {
namespace {

using Fields = std::vector<std::string>;

Fields joinedFields(const std::vector<Fields>& groups) {
  Fields all;
  for (const Fields& group : groups) all.insert(all.end(), group.begin(), group.end());
  return all;
}

Configuration ofModel(std::string_view name) {
  Configuration configuration;
  configuration.model = modelNamed(name).value();
  return configuration;
}

// Of the longest layout; the others have the first of these fields.
const Fields kKnownSummary = joinedFields(
    {{"0000", "000101", "000000", "00000003", "260314", "103015", "00000001", "00000002",
      "00000001"},
     kKnownSales,
     kKnownDebits,
     kKnownCredits,
     {"0000000500", "0000000200", "0000000300", "0000008350", "0000000251", "0000004077",
      "0000000122", "0000002273", "0000000068", "0000035161", "0000002441"}});

TEST(Day, XLeavesTheDayAndZEndsIt) {
  Bench bench(ofModel("long-41"));
  ASSERT_EQ(bench.firstRefused(knownDay()), "");
  const Fields counters = bench.fields("S1");
  ASSERT_EQ(bench.command("I0X"), kAckAnswer);
  Fields expected = counters;
  expected[10] = "0001";
  EXPECT_EQ(bench.fields("S1"), expected) << "one more report";
  EXPECT_EQ(bench.fields("U0Z"), kKnownSummary);
  EXPECT_EQ(bench.command("U3A000001000001"), kNakAnswer) << "no zReport yet";

  ASSERT_EQ(bench.command("I0Z"), kAckAnswer);
  EXPECT_EQ(bench.fields("S1"), (Fields{"S100", "0000000000", "00000003", "00000", "00000001",
                                        "00000", "00000002", "00000", "00000001", "00000", "0002",
                                        "0001", "J-12345678-9", "Z1F0000001", "103015", "260314"}));
  Fields none(24, "0000000000");
  none[0] = "S40000000000";
  EXPECT_EQ(bench.fields("S4"), none);
  Fields zReport(kKnownSummary.begin(), kKnownSummary.begin() + 30);
  zReport[0] = "0001";
  zReport[1] = "260314";
  zReport[2] = "103015";
  EXPECT_EQ(bench.fields("U3A000001000001"), zReport);
}

TEST(Day, ZReportsAreFoundByNumberAndByDate) {
  Bench bench;
  ASSERT_EQ(bench.firstRefused({"I0Z", "PG150326", "I0Z", "PG170326", "I0Z"}), "");
  const struct {
    const char* query;
    const char* firstNumber;  // empty: refused
  } kCases[] = {{"U3A000002000002", "0002"}, {"U3A000003000099", "0003"},
                {"U3A000003000001", ""},     {"U3A000004000009", ""},
                {"U2A260315260315", "0002"}, {"U2A260316260399", "0003"},
                {"U2A260316260316", ""},     {"U3A00000100000x", ""}};
  for (const auto& c : kCases) {
    const Fields fields = bench.fields(c.query);
    EXPECT_EQ(fields.empty() ? "" : fields.front(), c.firstNumber) << c.query;
  }
}

}  // namespace
}  // namespace corvid::simulator
