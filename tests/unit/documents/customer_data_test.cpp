// The lines of a customer, and how an address becomes lines.
#include "documents/customer_data.h"

#include "documents/str2lines.h"
#include "support/document_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace corvid {
namespace {

using Method = std::function<std::int32_t(PrinterSession& session)>;

const std::wstring kLongName(45, L'n');
const std::string kCutName(40, 'n');
const Customer kAna = {L"Ana", L"V-123", L"A\r\n\r\nB"};
const Date kMarch14{46095.4376736111};  // 2026-03-14 10:30:15

struct SeriesCase {
  Method method;
  Sent commands;
  const char* reason;
};

void expectSeries(const std::vector<SeriesCase>& cases, DocumentBench::Entries entries) {
  for (const SeriesCase& item : cases) {
    DocumentBench bench(entries);
    EXPECT_EQ(item.method(bench.session()), pfOk) << item.reason;
    EXPECT_EQ(bench.commands(), item.commands) << item.reason;
    EXPECT_TRUE(bench.world().dialog.shown.empty()) << item.reason;
  }
}

using S = PrinterSession;

Method withReferences(const Customer& customer, const OriginalInvoice& original) {
  return [=](S& session) { return PasarDatosCliente(session, customer, original); };
}
Method opening(const Customer& customer) {
  return [=](S& session) { return IniciarFactura(session, customer); };
}
Method otherInvoice(const Customer& customer, const std::wstring& number) {
  return [=](S& session) { return PasarDatosClientePA(session, customer, number); };
}
Method otherCreditNote(const Customer& customer, const std::wstring& number) {
  return [=](S& session) { return PasarDatosClienteNCPA(session, customer, number); };
}

TEST(CustomerData, InvoiceLinesAreNumberedThroughout) {
  const OriginalInvoice all = {L"0000012345678", L"Z6B1234567890", DateOrBlank(kMarch14)};
  expectSeries(
      {
          {withReferences(kAna, {}),
           {"i01Ana", "i02RIF:V-123", "i03A", "i04B"},
           "empty address lines use no number"},
          {withReferences(kAna, all),
           {"i01Ana", "i02RIF:V-123", "i03A", "i04B", "i05#Factura afectada: 000001234567",
            "i06Serial impresora: Z6B123456789", "i07Fecha factura: 14-03-2026"},
           "references are cut at 12"},
          {withReferences({kLongName, kLongName, L""}, {L"", std::nullopt, DateOrBlank()}),
           {"i01" + kCutName, "i02RIF:" + std::string(45, 'n'),
            "i03#Factura afectada: ", "i04Fecha factura: "},
           "given empty is given; a tax id is never cut"},
          {withReferences({L"", L"", kLongName + L"\r\nx\ny"}, {}),
           {"i01", "i02RIF:", "i03" + kCutName, "i04x\ny"},
           "only CR LF parts the address"},
      },
      {});
}

TEST(CustomerData, CreditNoteFieldsAreTaggedAndTheAddressBeginsAtZero) {
  expectSeries(
      {
          {[](PrinterSession& session) {
             return PasarDatosClienteNC(session, {kLongName, L"V-123", L"A\r\n\r\nB"},
                                        std::wstring(41, L'1'), kLongName, kMarch14);
           },
           {"iS*" + kCutName, "iR*V-123", "iF*" + std::string(40, '1'),
            "iI*" + std::string(45, 'n'), "iD*14-03-2026", "i00A", "i01B"},
           "name and invoice are cut at 40"},
          {[](PrinterSession& session) {
             return PasarDatosClienteNC(session, {L"Ana", L"", L""}, L"", L"", std::nullopt);
           },
           {"iS*Ana", "iR*", "iF*", "iI*", "iD*"},
           "a blank date is an empty text"},
      },
      {});
}

TEST(CustomerData, InvoiceOpeningWrapsTheAddress) {
  const auto open = [](const std::wstring& address) {
    return opening({kLongName, L"V-123", address});
  };
  expectSeries({{open(L"Calle 5, casa 3"),
                 {"iR*V-123", "iS*" + kCutName, "i01Calle 5,", "i02casa 3"},
                 "at the width of the setting"},
                {open(L"\r\nuno\r\ndos"),
                 {"iR*V-123", "iS*" + kCutName, "i01uno", "i02dos"},
                 "an empty line uses no number"},
                {open(L"a b c d e f g h i j k l m n"),
                 {"iR*V-123", "iS*" + kCutName, "i01a b c d e", "i02f g h i j", "i03k l m n"},
                 "more lines than the setting has are sent all the same"}},
               {{L"AnchoDireccion", L"10"}, {L"LineasDireccion", L"2"}});
  expectSeries({{open(L"ab"), {"iR*V-123", "iS*" + kCutName, "i01a", "i02b"}, "the least width"}},
               {{L"AnchoDireccion", L"1"}});
  expectSeries({{open(std::wstring(50, L'x')),
                 {"iR*V-123", "iS*" + kCutName, "i01" + std::string(40, 'x'), "i02xx"},
                 "a line wider than 40 is cut"}},
               {{L"AnchoDireccion", L"48"}});
}

TEST(CustomerData, InvoiceOpeningWithoutAWidthRaisesBehindTheNames) {
  DocumentBench bench({{L"AnchoDireccion", L"0"}});
  EXPECT_EQ(errorOf([&] { IniciarFactura(bench.session(), kAna); }), 5);
  EXPECT_EQ(bench.commands(), (Sent{"iR*V-123", "iS*Ana"}));
}

TEST(CustomerData, OtherFamilyPadsAndNumbersFromOne) {
  const std::string ana40 = "Ana" + std::string(37, ' ');
  expectSeries({{otherInvoice(kAna, L""), {"jRV-123", "jS" + ana40, "j1A", "j2B"}, "no reference"},
                {otherInvoice(kAna, L"123"),
                 {"jRV-123", "jS" + ana40, "jF123", "j1A", "j2B"},
                 "with a reference"},
                {otherInvoice({kLongName, std::wstring(21, L'r'), kLongName}, L""),
                 {"jR" + std::string(20, 'r'), "jS" + kCutName, "j1" + kCutName},
                 "everything is cut"},
                {otherCreditNote(kAna, L"123"),
                 {"jR*V-123", "jS*Ana", "jF*123" + std::string(19, ' '), "j1A", "j2B"},
                 "the invoice is padded to 22"},
                {otherCreditNote({kLongName, std::wstring(21, L'r'), L""}, std::wstring(23, L'1')),
                 {"jR*" + std::string(21, 'r'), "jS*" + kCutName, "jF*" + std::string(22, '1')},
                 "the tax id is not cut, the others are"},
                {otherCreditNote({L"", L"", L""}, L""),
                 {"jR*", "jS*", "jF*" + std::string(22, ' ')},
                 "an empty invoice is all blanks"}},
               {});
}

// Each command of a series in turn goes unanswered: the series ends there, and a box tells it.
TEST(CustomerDataFailure, StopsAtItsCommandAndShowsTheOutcomesWords) {
  const struct {
    Method method;
    std::size_t commands;
    std::wstring step;  // before the number of the step, which the box tells; empty: none
    std::size_t lastStep;
  } kSeries[] = {
      {withReferences(kAna, {L"9", L"Z", DateOrBlank(kMarch14)}), 7, L"", 0},
      {opening(kAna), 4, L"", 0},
      {otherInvoice(kAna, L"9"), 5, L"PasarDatosClientePA (", 3},
      {otherCreditNote(kAna, L"9"), 5, L"PasarDatosClienteNCPA (", 4},
  };
  const std::wstring words = L"pfError de comunicacion";
  for (const auto& series : kSeries) {
    DocumentBench fine;
    EXPECT_EQ(series.method(fine.session()), pfOk);
    const Sent all = fine.commands();
    ASSERT_EQ(all.size(), series.commands);
    for (std::size_t i = 0; i < all.size(); ++i) {
      DocumentBench bench;
      bench.silence(all[i]);
      EXPECT_EQ(series.method(bench.session()), pfCommError) << all[i];
      EXPECT_EQ(bench.commands(),
                Sent(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(i + 1)));
      const std::wstring step = std::to_wstring(std::min(i + 1, series.lastStep));
      const ShownMessage expected =
          series.step.empty() ? ShownMessage{words, L"", MessageIcon::None}
                              : ShownMessage{series.step + step + L"): " + words,
                                             L"Error en Printer Fiscal", MessageIcon::Critical};
      EXPECT_EQ(bench.world().dialog.shown, std::vector{expected}) << all[i];
    }
  }
}

TEST(CustomerDataFailure, CreditNoteGoesOnAndReturnsTheLastOutcome) {
  DocumentBench bench;
  bench.silence("iR*V-123");
  EXPECT_EQ(PasarDatosClienteNC(bench.session(), kAna, L"9", L"Z", kMarch14), pfOk);
  EXPECT_EQ(bench.commands().size(), 7U);
  bench.silence("i01B");
  EXPECT_EQ(PasarDatosClienteNC(bench.session(), kAna, L"9", L"Z", kMarch14), pfCommError);
  EXPECT_TRUE(bench.world().dialog.shown.empty());
}

TEST(CustomerDataFailure, RefusalIsNoFailureOfTheSeries) {
  DocumentBench bench;
  bench.refuse("i01Ana");
  EXPECT_EQ(PasarDatosCliente(bench.session(), kAna, {}), pfOk);
  EXPECT_EQ(bench.commands().size(), 4U) << "a refusal leaves the outcome class as it was";
}

TEST(WordWrap, BreaksWhereALineEndsOrAWordDoes) {
  const struct {
    std::wstring text;
    std::int32_t width;
    Lines lines;
    const char* reason;
  } kCases[] = {
      {L"", 10, {}, "no text, no lines"},
      {L"Calle 5", 10, {L"Calle 5"}, "shorter than the width"},
      {L"Calle 5, casa 3", 10, {L"Calle 5,", L"casa 3"}, "the blank behind the comma is used up"},
      {L"uno dos,tres", 9, {L"uno dos,", L"tres"}, "a comma stays on its line"},
      {L"uno;dos:tres", 6, {L"uno;", L"dos:", L"tres"}, "other marks do too"},
      {L"que?si!no.", 8, {L"que?si!", L"no."}, "closing marks"},
      {L"abc \u00BFde?", 7, {L"abc ", L"\u00BFde?"}, "an opening mark begins the next line"},
      {L"abc\u00A1def", 5, {L"abc", L"\u00A1def"}, "the other opening mark"},
      {L"\u00BFabcdef", 4, {L"\u00BFabc", L"def"}, "an opening mark in front is no break"},
      {L" abcdef", 4, {L"", L"abcd", L"ef"}, "a blank in front ends an empty line"},
      {L"abcdefgh", 3, {L"abc", L"def", L"gh"}, "hard where there is no break"},
      {L"abc def", 7, {L"abc", L"def"}, "a last line of full width is broken all the same"},
      {L"abcdef", 6, {L"abcdef"}, "full width, no break, nothing left"},
      {L"ab cd", 1, {L"a", L"b", L"", L"c", L"d"}, "one character a line"},
      {L"uno\r\ndos", 10, {L"uno", L"dos"}, "CR LF"},
      {L"uno\ndos\rtres", 20, {L"uno\ndos", L"tres"}, "a CR goes before an earlier LF"},
      {L"uno\ndos", 20, {L"uno", L"dos"}, "LF alone"},
      {L"uno\r\n\r\n \t dos", 20, {L"uno", L"dos"}, "blank lines and indents are used up"},
      {L"\r\nuno", 20, {L"", L"uno"}, "a break in front ends an empty line"},
      {L"uno\r\n", 20, {L"uno"}, "a break at the end begins no line"},
      {L"uno\r\n          dos", 4, {L"uno", L"dos"}, "blanks behind the chunk are used up too"},
      {L"abcd\r\nef", 4, {L"abcd", L"", L"ef"}, "a break behind the chunk is found later"},
  };
  for (const auto& item : kCases) {
    EXPECT_EQ(lmStr2Lines(item.text, item.width), item.lines) << item.reason;
  }
}

TEST(WordWrap, RefusesAWidthBelowOneEvenForNoText) {
  for (const std::int32_t width : {0, -1}) {
    EXPECT_EQ(errorOf([&] { return lmStr2Lines(L"", width); }), 5) << width;
  }
}

}  // namespace
}  // namespace corvid
