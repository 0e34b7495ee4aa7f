#include "known_day.h"

#include <gtest/gtest.h>

#include <numeric>

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

const Fields kLevies = {"0000000500", "0000000200", "0000000300", "0000008350", "0000000251",
                        "0000004077", "0000000122", "0000002273", "0000000068"};

TEST(Summary, EachLayoutHasItsFieldsInItsOrder) {
  const Fields invoice = {"00000003", "260314", "103015"};
  const Fields notYet = {"0000", "000101", "000000"};
  const Fields thirty = joinedFields({notYet,
                                      invoice,
                                      {"00000001", "00000002", "00000001"},
                                      kKnownSales,
                                      kKnownDebits,
                                      kKnownCredits});
  const Fields longest = joinedFields({thirty, kLevies, {"0000035161", "0000002441"}});
  const auto first = [&](std::ptrdiff_t count) {
    return Fields(longest.begin(), longest.begin() + count);
  };
  const struct {
    const char* model;
    Fields fields;
  } kCases[] = {
      {"short",
       joinedFields({{"0000", "000101"}, invoice, kKnownSales, kKnownCredits, {"00000002"}})},
      {"short-29", joinedFields({notYet,
                                 invoice,
                                 kKnownSales,
                                 kKnownDebits,
                                 {"00000001"},
                                 kKnownCredits,
                                 {"00000002"}})},
      {"short-30", thirty},
      {"long-31", first(31)},
      {"long-38", first(38)},
      {"long", first(39)},
      {"long-40", first(40)},
      {"long-41", longest},
  };
  for (const auto& c : kCases) {
    Bench bench(ofModel(c.model));
    ASSERT_EQ(bench.firstRefused(knownDay()), "");
    EXPECT_EQ(bench.fields("U0Z"), c.fields) << c.model;
    EXPECT_EQ(bench.fields("U0X"), c.fields) << c.model;
  }
}

TEST(Summary, OnlyModelsThatExistHaveAName) {
  for (const char* name :
       {"", "-", "long-", "long-21", "long-42", "long-039", "long-3", "medium"}) {
    EXPECT_FALSE(modelNamed(name)) << name;
  }
}

TEST(Summary, StaysThatOfTheClosedDayUntilTheNextDocument) {
  Bench bench(ofModel("long-30"));
  ASSERT_EQ(bench.firstRefused(knownDay()), "");
  const Fields before = bench.fields("U0Z");
  ASSERT_EQ(bench.command("I0Z"), kAckAnswer);
  Fields closed = before;
  closed[0] = "0001";
  closed[1] = "260314";
  closed[2] = "103015";
  EXPECT_EQ(bench.fields("U0Z"), closed);
  EXPECT_EQ(bench.fields("U0X")[9], "0000000000") << "nothing of the new day";
  ASSERT_EQ(bench.firstRefused({item(" ", 700, 1000, "A"), "101"}), "");
  const Fields next = bench.fields("U0Z");
  EXPECT_EQ(Fields(next.begin(), next.begin() + 4),
            (Fields{"0001", "260314", "103015", "00000004"}));
  EXPECT_EQ(next[9], "0000000700");
  EXPECT_EQ(next[10], "0000000000");
}

TEST(Day, TotalsAreThoseOfReceiptsAndOfPayments) {
  Bench bench;
  ASSERT_EQ(bench.firstRefused(knownDay()), "");
  const std::vector<Amount> totals = {21120 + 10440 + 150 + 3350 + 101, 4077 + 122,
                                      2273 + 68 + 100};
  for (std::size_t kind = 0; kind < kDocumentKinds; ++kind) {
    const KindOfDay& sums = bench.printer.machine().memory.today().kinds.at(kind);
    EXPECT_EQ(sums.total, totals.at(kind));
    EXPECT_EQ(std::accumulate(sums.payments.begin(), sums.payments.end(), Amount{0}), sums.total);
  }
  Fields method(24, "0000000000");
  method[0] = "S40000021120";
  method[1] = "0000005440";
  method[19] = "0000005150";
  method[21] = "0000004199";
  method[23] = "0000003451";
  EXPECT_EQ(bench.fields("S4"), method);
}

TEST(Day, XLeavesTheDayAndZEndsIt) {
  Bench bench(ofModel("long-41"));
  ASSERT_EQ(bench.firstRefused(knownDay()), "");
  const Fields counters = bench.fields("S1");
  const Fields summary = bench.fields("U0Z");
  ASSERT_EQ(bench.command("I0X"), kAckAnswer);
  Fields expected = counters;
  expected[10] = "0001";
  EXPECT_EQ(bench.fields("S1"), expected) << "one more report";
  EXPECT_EQ(bench.fields("U0Z"), summary);
  EXPECT_EQ(bench.command("U3A000001000001"), kNakAnswer) << "no zReport yet";

  ASSERT_EQ(bench.command("I0Z"), kAckAnswer);
  EXPECT_EQ(bench.fields("S1"), (Fields{"S100", "0000000000", "00000003", "00000", "00000001",
                                        "00000", "00000002", "00000", "00000001", "00000", "0002",
                                        "0001", "J-12345678-9", "Z1F0000001", "103015", "260314"}));
  Fields none(24, "0000000000");
  none[0] = "S40000000000";
  EXPECT_EQ(bench.fields("S4"), none);
  Fields zReport(summary.begin(), summary.begin() + 30);
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
  EXPECT_EQ(bench.command("I3A000002000003"), kAckAnswer);
  EXPECT_EQ(bench.command("I2A260316260316"), kNakAnswer);
  const std::string paper = bench.paper();
  const std::string report = paper.substr(paper.find("REPORTE DE MEMORIA FISCAL"));
  EXPECT_EQ(report.find("CIERRE Z:                           0001"), std::string::npos);
  EXPECT_NE(report.find("CIERRE Z:                           0002\nFECHA: 15-03-2026"),
            std::string::npos);
  EXPECT_NE(report.find("CIERRE Z:                           0003"), std::string::npos);
}

TEST(DocumentState, FollowsTheSale) {
  Bench bench;
  const struct {
    std::string command;
    const char* reply;
  } kCases[] = {
      {item("!", 1000, 2500, "A"), "S2 0000002500\n0000000400\n0000002900\n2.5\n0000002900\n0\n1"},
      {item(" ", 1000, 1000, "B"), "S2 0000003500\n0000000400\n0000003900\n3.5\n0000003900\n0\n1"},
      {item("\xA1", 1000, 500, "A"), "S2 0000003000\n0000000320\n0000003320\n3\n0000003320\n0\n1"},
      {"220000000001000", "S2 0000003000\n0000000320\n0000003320\n3\n0000002320\n1\n1"},
      {"101", "S2 0000000000\n0000000000\n0000000000\n0\n0000000000\n0\n0"},
      {"D+01,00||0,125||C", "S2 0000000013\n0000000000\n0000000013\n0.125\n0000000013\n0\n2"},
      {"101", "S2 0000000000\n0000000000\n0000000000\n0\n0000000000\n0\n0"},
      {item("d0", 100, 1000, "D"), "S2 0000000100\n0000000000\n0000000100\n1\n0000000100\n0\n3"},
      {"f01000000000000", "S2 0000000000\n0000000000\n0000000000\n0\n0000000000\n0\n0"},
      {"800TEXT", "S2 0000000000\n0000000000\n0000000000\n0\n0000000000\n0\n4"},
  };
  for (const auto& step : kCases) {
    ASSERT_EQ(bench.command(step.command), kAckAnswer) << step.command;
    EXPECT_EQ(bench.command("S2"), framed(step.reply)) << step.command;
  }
}

TEST(Levy, StandsOnTheReceipt) {
  Bench bench;
  ASSERT_EQ(bench.firstRefused({item(" ", 10440, 1000, "A"), "220000000005000", "102"}), "");
  EXPECT_NE(bench.paper().find("TOTAL                          Bs 104,40\n"
                               "MEDIO DE PAGO 20                Bs 50,00\n"
                               "IGTF SOBRE Bs 50,00              Bs 1,50\n"
                               "MEDIO DE PAGO 02                Bs 54,40\n"
                               "TOTAL CON IGTF                 Bs 105,90\n"),
            std::string::npos)
      << bench.paper();
}

TEST(Levy, IsDueOnlyFromTheFirstForeignMethodAndWhereThePrinterKnowsIt) {
  for (const auto& [payment, rate, tax] :
       {std::tuple{"119", "20300", 0}, std::tuple{"120", "20300", 30},
        std::tuple{"124", "20300", 30}, std::tuple{"120", "20250", 25},
        std::tuple{"120", "none", 0}}) {
    Configuration configuration;
    configuration.igtf = parsedRate(rate);
    Bench bench(configuration);
    ASSERT_EQ(bench.firstRefused({item(" ", 1000, 1000, "A"), payment}), "");
    EXPECT_EQ(bench.printer.machine().memory.today().kinds[0].levy.tax, tax) << payment << rate;
  }
}

}  // namespace
}  // namespace corvid::simulator
