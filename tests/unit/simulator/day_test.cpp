// The known day, its reports and reprints, and what is programmed between documents.
#include "known_day.h"

#include <gtest/gtest.h>

namespace corvid::simulator {
namespace {

using Fields = std::vector<std::string>;

// Of the longest layout; the others have the first of these fields.
const Fields kKnownSummary = {
    "0000", "000101", "000000", "00000003", "260314", "103015", "00000001", "00000002", "00000001",
    // Invoices, debit notes, credit notes: exempt, then base and tax at the general, reduced and
    // additional rate.
    "0000004350", "0000019000", "0000003040", "0000005000", "0000000400", "0000002000",
    "0000000620", "0000000100", "0000002000", "0000000320", "0000000500", "0000000040",
    "0000000700", "0000000217", "0000000250", "0000001000", "0000000160", "0000000250",
    "0000000020", "0000000300", "0000000093",
    // Collected; due for the levy, and the levy; totals of invoices and credit notes.
    "0000000500", "0000000200", "0000000300", "0000008350", "0000000251", "0000004077",
    "0000000122", "0000002273", "0000000068", "0000035161", "0000002441"};

TEST(Day, XLeavesTheDayAndZEndsIt) {
  Configuration longest;
  longest.model = modelNamed("long-41").value();
  Bench bench(longest);
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

std::string blanks(std::size_t count) { return std::string().append(count, ' '); }

// What the printer put on the paper for a command.
std::string printedFor(Bench& bench, std::string_view command) {
  const std::size_t before = bench.paper().size();
  EXPECT_EQ(bench.command(command), kAckAnswer) << command;
  return bench.paper().substr(before);
}

TEST(Housekeeping, ProgrammedLinesStandOnDocumentsAsSent) {
  Bench bench;
  ASSERT_EQ(bench.firstRefused({"PH1" + blanks(15) + "LA CASA ES" + blanks(15), "PH2" + blanks(40),
                                "PH4" + blanks(1) + std::string(38, '\xD1') + " ",
                                "PHB" + blanks(17) + "GRACIAS" + blanks(16)}),
            "");
  std::string enye;
  for (int i = 0; i < 38; ++i) enye += "\xC3\x91";
  EXPECT_EQ(printedFor(bench, "810TEXT"),
            "           RIF: J-12345678-9\n"
            "               LA CASA ES\n"
            "                CARACAS\n " +
                enye +
                "\n          DOCUMENTO NO FISCAL\n"
                "FECHA: 14-03-2026            HORA: 10:30\n"
                "----------------------------------------\n"
                "TEXT\n"
                "                 GRACIAS\n"
                "               Z1F0000001\n"
                "========================================\n");
}

TEST(Housekeeping, IsRefusedInTheMiddleOfADocument) {
  const std::vector<std::string> commands = {"PHA" + blanks(40), "PG150326",        "PF103000",
                                             "RF00000010000001", "I3A000001000001", "I0X"};
  for (const std::string& command : commands) {
    Bench bench;
    ASSERT_EQ(bench.firstRefused({"I0Z", item(" ", 100, 1000, "A"), "101"}), "");
    ASSERT_EQ(bench.command(item(" ", 100, 1000, "B")), kAckAnswer);
    EXPECT_EQ(bench.command(command), kNakAnswer) << command;
    ASSERT_EQ(bench.command("101"), kAckAnswer);
    EXPECT_EQ(bench.command(command), kAckAnswer) << command;
  }
}

TEST(Reprint, FindsKindsByTheirLetter) {
  Bench bench;
  std::vector<std::string> day = knownDay();
  day.insert(day.end(), {"I0Z", "PG150326", item(" ", 100, 1000, "LATE"), "101"});
  ASSERT_EQ(bench.firstRefused(day), "");
  using Pair = std::pair<const char*, const char*>;  // what it prints; empty: refused
  for (const auto& [command, content] :
       {Pair{"RF00000020000002", "\nF (G) "}, Pair{"RD00000010000001", "\nL (P) "},
        Pair{"RC00000020000002", "\nR (E) "}, Pair{"RN00000010000001", "\nTEXT\n"},
        Pair{"RZ00000010000001", "REPORTE Z"}, Pair{"Rf02603150260316", "\nLATE (E) "},
        Pair{"Rz02603140260314", "REPORTE Z"}, Pair{"RF00000050000009", ""},
        Pair{"RF00000020000001", ""}, Pair{"RN00000020000002", ""}, Pair{"RX00000010000001", ""},
        Pair{"Rf02603160260316", ""}, Pair{"RF0000001000001", ""}, Pair{"RF000000100000011", ""},
        Pair{"R", ""}}) {
    const std::size_t before = bench.paper().size();
    const std::string answer = bench.command(command);
    const std::string printed = bench.paper().substr(before);
    EXPECT_EQ(answer, *content == '\0' ? kNakAnswer : kAckAnswer) << command;
    EXPECT_EQ(printed.empty(), *content == '\0') << command;
    EXPECT_NE(printed.find(content), std::string::npos) << command << printed;
  }
}

}  // namespace
}  // namespace corvid::simulator
