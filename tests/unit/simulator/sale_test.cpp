#include "bench.h"

#include <gtest/gtest.h>

namespace corvid::simulator {
namespace {

const Day& today(const Bench& bench) { return bench.printer.machine().memory.today(); }

// 25.00 at 16 %, 1.67 (1.665 rounded) at 8 %, 10.00 exempt.
const std::vector<std::string> kThreeItems = {item("!", 1250, 2000, "PAN DE TRIGO"),
                                              item("\"", 333, 500, "QUESO"),
                                              item(" ", 1000, 1000, "HUEVOS")};

TEST(Sale, SumsAreThoseOfTheHandComputedReceipt) {
  Bench bench;
  EXPECT_EQ(bench.firstRefused({"iR*V-11111111", "iS*Ana Pe\361a", "i01Calle 5, casa 3"}), "");
  EXPECT_EQ(bench.firstRefused(kThreeItems), "");
  EXPECT_EQ(bench.firstRefused({"3", "201000000005000"}), "");

  EXPECT_EQ(today(bench).of(DocumentKind::Invoice).payments[0], 4080) << "no change is kept";
  EXPECT_EQ(bench.paper(),
            "           RIF: J-12345678-9\n"
            "        COMERCIO DE PRUEBA, C.A.\n"
            "         AV. PRINCIPAL, LOCAL 1\n"
            "                CARACAS\n"
            "RIF/C.I.: V-11111111\n"
            "RAZON SOCIAL: Ana Pe\303\261a\n"
            "Calle 5, casa 3\n"
            "                FACTURA\n"
            "FACTURA:                        00000001\n"
            "FECHA: 14-03-2026            HORA: 10:30\n"
            "----------------------------------------\n"
            "2 x Bs 12,50\n"
            "PAN DE TRIGO (G)                Bs 25,00\n"
            "0,500 x Bs 3,33\n"
            "QUESO (R)                        Bs 1,67\n"
            "HUEVOS (E)                      Bs 10,00\n"
            "SUBTOTAL                        Bs 36,67\n"
            "----------------------------------------\n"
            "EXENTO (E)                      Bs 10,00\n"
            "BI G (16,00%)                   Bs 25,00\n"
            "IVA G (16,00%)                   Bs 4,00\n"
            "BI R (8,00%)                     Bs 1,67\n"
            "IVA R (8,00%)                    Bs 0,13\n"
            "----------------------------------------\n"
            "TOTAL                           Bs 40,80\n"
            "EFECTIVO                        Bs 50,00\n"
            "CAMBIO                           Bs 9,20\n"
            "               Z1F0000001\n"
            "========================================\n");
}

TEST(Sale, TotalsFollowWhatWasDone) {
  const struct {
    std::vector<std::string> commands;  // before "101"
    Amount total;
    const char* reason;
  } kCases[] = {
      {{item("!", 1250, 2000, "A"), item("\"", 333, 500, "B"), item(" ", 1000, 1000, "C"),
        "p-01000"},
       3672,
       "9.00 + 22.50 + 3.60 + 1.50 + 0.12"},
      {{item(" ", 100, 1000, "A"), item("!", 100, 1000, "B"), item("\"", 100, 1000, "C"),
        "q-000000000100"},
       216,
       "0.67 + 0.66 + 0.11 + 0.67 + 0.05: the parts of the discount add up to 1.00"},
      {{item(" ", 100, 1000, "A"), item("$", 100, 1000, "B"), "p-10000"}, 100, "levy undiscounted"},
      {{item(" ", 1000, 1000, "A"), "GP-*10,00"}, 900, "discount by percent"},
      {{item(" ", 1000, 1000, "A"), "GP+*10,00"}, 1100, "surcharge by percent"},
      {{item(" ", 1000, 1000, "A"), "GM-*2,50"}, 750, "discount by amount"},
      {{item(" ", 1000, 1000, "A"), "GM+*2,50"}, 1250, "surcharge by amount"},
      {{item(" ", 100, 1000, "A"), item(" ", 100, 1000, "B"), item("\xA0", 100, 1500, "C"), "3"},
       50,
       "taken back from two lines"},
  };
  for (const auto& c : kCases) {
    Bench bench;
    EXPECT_EQ(bench.firstRefused(c.commands), "") << c.reason;
    EXPECT_EQ(bench.command("101"), kAckAnswer) << c.reason;
    EXPECT_EQ(today(bench).of(DocumentKind::Invoice).total, c.total) << c.reason;
    EXPECT_TRUE(bench.printer.machine().isIdle()) << c.reason;
  }
}

TEST(Sale, IncludedTaxIsTakenOutOfThePrice) {
  Configuration configuration;
  configuration.rates[0] = *parsedRate("11600");
  Bench bench(configuration);
  EXPECT_EQ(bench.firstRefused({item("!", 1160, 1000, "A"), "101"}), "");
  const TaxedAmount& general = today(bench).of(DocumentKind::Invoice).byRate[1];
  EXPECT_EQ(general.base, 1000);
  EXPECT_EQ(general.tax, 160);
}

TEST(Sale, Flag21ChoosesTheFieldWidths) {
  // Each sells 1.5 units at 20.00 and pays 30.00 exactly.
  const struct {
    const char* flag;
    const char* item;
    const char* payment;
  } kCases[] = {
      {"PJ2100", " 000000200000001500A", "201000000003000"},
      {"PJ2102", " 000002000000001500A", "201000000003000"},
      {"PJ2103", " 000020000000001500A", "201000000003000"},
      {"PJ2111", " 000000020000001500A", "201000000000300"},
      {"PJ2112", " 000000002000001500A", "201000000000030"},
      {"PJ2130", " 000000000000200000000000000001500A", "20100000000000003000"},
  };
  for (const auto& c : kCases) {
    Bench bench;
    EXPECT_EQ(bench.firstRefused({c.flag, c.item, c.payment}), "") << c.flag;
    EXPECT_EQ(today(bench).of(DocumentKind::Invoice).total, 3000) << c.flag;
    EXPECT_EQ(bench.paper().find("CAMBIO"), std::string::npos) << c.flag;
  }
}

TEST(Refusal, LeavesPaperAndDocumentAsTheyWere) {
  const std::string sold = item("!", 1000, 1000, "PAN");
  const struct {
    std::vector<std::string> before;
    std::string command;
    const char* reason;
  } kCases[] = {
      {{}, "", "no command at all"},
      {{}, "101", "payment without a document"},
      {{}, "7", "nothing to cancel"},
      {{}, "!00000012500000200", "quantity cut short"},
      {{}, item("!", 1250, 0, "PAN"), "no quantity"},
      {{}, item("d5", 100, 1000, "PAN"), "no such rate"},
      {{}, item("\xA1", 1000, 1000, "PAN"), "void without a document"},
      {{}, "F+112,50||1,000", "bars missing"},
      {{sold}, "iS*Ana", "customer behind the heading"},
      {{sold}, item("d1", 1000, 1000, "PAN"), "refund in an invoice"},
      {{sold}, "800TEXT", "text in a fiscal document"},
      {{sold}, "I0Z", "closing with an open document"},
      {{sold}, "f01000000000000", "closing of another kind"},
      {{sold}, "200000000001000", "no such method"},
      {{sold}, "p-10001", "more than the whole"},
      {{sold}, "q-000000001001", "more than the subtotal"},
      {{sold}, item("\xA1", 1000, 1001, "PAN"), "void of more than was sold"},
      {{sold, item("\xA1", 1000, 1000, "PAN")}, "101", "payment of nothing"},
      {{sold, "p-05000"}, item("\xA1", 1000, 1000, "PAN"), "void beyond what a discount left"},
      {{sold, "201000000000100"}, sold, "item behind a payment"},
      {{item("d1", 1000, 1000, "PAN")}, "f01000000001161", "refund above the total"},
      {{item("d1", 1000, 1000, "PAN")}, sold, "sale in a credit note"},
      {{"800TEXT"}, sold, "item in a non-fiscal document"},
      {{"800TEXT"}, "7", "cancelling a non-fiscal document"},
  };
  for (const auto& c : kCases) {
    Bench bench;
    EXPECT_EQ(bench.firstRefused(c.before), "") << c.reason;
    const std::string paper = bench.paper();
    const std::string status = bench.raw("\x05");
    EXPECT_EQ(bench.command(c.command), kNakAnswer) << c.reason;
    EXPECT_EQ(bench.paper(), paper) << c.reason;
    EXPECT_EQ(bench.raw("\x05"), status) << c.reason;
    if (c.before.size() == 1 && c.before.front() == sold) {
      EXPECT_EQ(bench.command("101"), kAckAnswer) << c.reason;
      EXPECT_EQ(today(bench).of(DocumentKind::Invoice).total, 1160) << c.reason;
    }
  }
}

TEST(Refusal, WithoutPaperNothingIsPrintedUntilThereIsSome) {
  Bench bench;
  bench.printer.machine().error = kNoPaper;
  EXPECT_EQ(bench.command(item("!", 100, 1000, "PAN")), kNakAnswer);
  EXPECT_EQ(bench.command("e"), kAckAnswer);
  EXPECT_EQ(bench.raw("\x05"), framed("\x60\x41")) << "a reset brings no paper";
  EXPECT_EQ(bench.command("S1").front(), '\x02') << "queries need none";
  bench.printer.machine().error = kNoError;
  EXPECT_EQ(bench.command(item("!", 100, 1000, "PAN")), kAckAnswer);
}

TEST(Refusal, FullMemoryOpensNoFiscalDocument) {
  Bench bench;
  bench.printer.machine().isMemoryFull = true;
  EXPECT_EQ(bench.raw("\x05"), framed("\x68\x40"));
  EXPECT_EQ(bench.command(item("!", 100, 1000, "PAN")), kNakAnswer);
  EXPECT_EQ(bench.command("810TEXT"), kAckAnswer);
}

}  // namespace
}  // namespace corvid::simulator
