// Members that send one command: which, and what they return.
#include "basic/run_time_error.h"
#include "documents/closing.h"
#include "documents/non_fiscal.h"
#include "support/document_bench.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace corvid {
namespace {

ReprintLimit dateLimit(Date date) {
  return {.date = [date] { return date; }, .number = []() -> Decimal { throw typeMismatch(); }};
}
ReprintLimit numberLimit(double value) {
  return {.date = []() -> Date { throw typeMismatch(); },
          .number = [value] { return number(value); }};
}

const Date kMorning{45429.378553240741};  // 2024-05-17 09:05:07
const std::string kBlanks(40, ' ');

// One call, and the command that it sends.
struct Call {
  std::function<int(PrinterSession&)> send;
  std::string command;
  const char* reason;
};

std::vector<Call> calls() {
  const std::wstring fifty = L"0123456789012345678901234567890123456789cut-offxyz";
  const std::string forty = "0123456789012345678901234567890123456789";
  const std::wstring word = L"DIEZLETRAS";
  const std::string centred = std::string(15, ' ') + "DIEZLETRAS" + std::string(15, ' ');
  const std::string thirtyNine = forty.substr(0, 39);
  using S = PrinterSession;
  return {
      {[=](S& s) { return PrintNoFiscal(s, fifty, false); }, "800" + forty, "cut to 40"},
      {[=](S& s) { return PrintNoFiscal(s, L"A\u00d1O ", true); }, "810A\xD1O ", "not padded"},
      {[](S& s) { return PrintNoFiscal(s, L"", true); }, "810", "an empty text"},
      {[](S& s) { return ReporteDiario(s, L"0", L"X"); }, "I0X", "range and kind"},
      {[](S& s) { return ReporteDiario(s, L"", L" z"); }, "I z", "as they are"},
      {[=](S& s) { return SetHeader(s, L"1", L""); }, "PH1" + kBlanks, "an empty header"},
      {[=](S& s) { return SetHeader(s, L"12", word); }, "PH12" + centred, "two-digit header"},
      {[=](S& s) { return SetHeader(s, L"1", fifty.substr(0, 39)); }, "PH1" + thirtyNine + " ",
       "39 characters: the blank stands behind"},
      {[=](S& s) { return SetHeader(s, L"-1", fifty); }, "PH-1" + forty, "a header cut to 40"},
      {[=](S& s) { return SetFooter(s, 1, L""); }, "PHA" + kBlanks, "the first footer"},
      {[=](S& s) { return SetFooter(s, 2, word); }, "PHB" + centred, "the second footer"},
      {[=](S& s) { return SetFooter(s, 191, fifty); }, "PH\xFF" + forty, "the last character"},
      {[=](S& s) { return SetFooter(s, 64, L""); }, "PH\x80" + kBlanks, "a character of the page"},
      {[=](S& s) { return SetFooter(s, -64, L""); }, std::string("PH\0", 3) + kBlanks,
       "character 0"},
      {[](S& s) { return SetDate(s, kMorning); }, "PG170524", "day, month, year"},
      {[](S& s) { return SetDate(s, Date{0}); }, "PG301299", "a date before 2000"},
      {[](S& s) { return SetTime(s, kMorning); }, "PF090507", "hour, minute, second"},
      {[](S& s) { return SetTime(s, Date{0.75}); }, "PF180000", "24 hours"},
      {[](S& s) { return Login(s, number(1)); }, "500001", "five digits"},
      {[](S& s) { return Login(s, number(123456)); }, "5123456", "more digits"},
      {[](S& s) { return Logoff(s); }, "6", "sign-off"},
      {[](S& s) { return StartTraining(s); }, "T1", "training on"},
      {[](S& s) { return EndTraining(s); }, "T2", "training off"},
      {[](S& s) { return setFlag(s, number(21), number(1)); }, "PJ2101", "flag and value"},
      {[](S& s) { return setFlag(s, number(0.5), number(123)); }, "PJ01123", "rounded, not cut"},
      {[](S& s) { return SubTotal(s, true); }, "3", "printed subtotal"},
      {[](S& s) { return SubTotal(s, false); }, "4", "shown subtotal"},
      {[](S& s) { return PasarDescuento(s, 10); }, "p-01000", "hundredths of a percent"},
      {[](S& s) { return PasarDescuento(s, 12.345); }, "p-01234", "cut, not rounded"},
      {[](S& s) { return PasarDescuento(s, 8.2); }, "p-00820", "8.2 is less than 820 in binary"},
      {[](S& s) { return PasarDescuento(s, 1234.5); }, "p-123450", "more digits are not cut"},
      {[](S& s) { return PasarDescuento(s, -0.001); }, "p--00001", "cut toward minus infinity"},
      {[](S& s) { return PasarMontoDescuento(s, money(5.5)); }, "q-000000000550", "amount"},
      {[](S& s) { return descuentoGeneral(s, true, true, number(10)); }, "GP-*10,00",
       "percent off"},
      {[](S& s) { return descuentoGeneral(s, false, false, number(2.5)); }, "GM+*2,50",
       "amount on"},
      {[](S& s) { return descuentoGeneral(s, false, true, number(12345.675)); }, "GM-*12345,68",
       "no grouping, half away from zero"},
      {[](S& s) { return CerrarComprobante(s, money(0)); }, "101", "without an amount"},
      {[](S& s) { return CerrarComprobante(s, money(100)); }, "201000000010000", "with an amount"},
      {[](S& s) { return CerrarConMedio(s, number(3), money(100)); }, "203000000010000",
       "method 3"},
      {[](S& s) { return CerrarConMedio(s, number(3), money(0)); }, "203000000000000",
       "nothing paid"},
      {[](S& s) { return CerrarConMedio(s, number(123), money(1)); }, "2123000000000100",
       "three digits of method"},
      {[](S& s) { return CerrarConMedio(s, number(2.5), money(1)); }, "203000000000100",
       "half away from zero"},
      {[](S& s) { return CerrarConMedio(s, number(1), money(-1)); }, "201-000000000100",
       "amounts are not checked"},
      {[](S& s) { return CerrarNotaCredito(s); }, "f01000000000000", "credit note"},
      {[](S& s) { return CerrarNotaCreditoConMedio(s, number(12), money(7)); }, "f12000000000700",
       "credit note with method"},
      {[](S& s) { return CancelarTransaccion(s); }, "7", "cancellation"},
  };
}

// A failure is 1 in every kind of result: True, or the outcome class.
TEST(Commands, AreSentOnceAndTellWhatBecameOfThem) {
  for (const Call& call : calls()) {
    DocumentBench bench({{L"DigitosMedio", L"12"}, {L"DecimalesMedio", L"2"}});  // asks no flags
    bench.world().locale.locale = venezuelan();
    EXPECT_EQ(call.send(bench.session()), pfOk) << call.reason;
    EXPECT_EQ(bench.printer().commands(), Sent{call.command}) << call.reason;
    bench.silence(call.command);
    EXPECT_EQ(call.send(bench.session()), pfCommError) << call.reason;
    EXPECT_EQ(bench.outcome().pfError, pfCommError) << call.reason;
  }
}

TEST(Commands, PaymentWidthFollowsTheSettings) {
  DocumentBench bench({{L"DigitosMedio", L"5"}, {L"DecimalesMedio", L"0"}});
  CerrarConMedio(bench.session(), number(1), money(12.5));
  PasarMontoDescuento(bench.session(), money(7));
  EXPECT_EQ(bench.commands(), (Sent{"20100013", "q-00007"}));
}

TEST(Reprint, CommandTellsDatesFromNumbers) {
  const ReprintLimit day = dateLimit(Date{45596.99});  // 2024-10-31
  const ReprintLimit nextDay = dateLimit(Date{45598});
  const ReprintLimit invoice = numberLimit(123);
  const ReprintLimit nextInvoice = numberLimit(12345678);
  const struct {
    const wchar_t* command;
    bool byDate;
  } kCases[] = {{L"a", true},  {L"f", true},  {L"z", true},   {L"b9", true},      {L"yz", true},
                {L"F", false}, {L"A", false}, {L"Z", false},  {L"za", false},     {L"", false},
                {L"`", false}, {L"{", false}, {L"Fa", false}, {L"\u00e1", false}, {L"1", false}};
  for (const auto& item : kCases) {
    DocumentBench bench;
    reimprimirDocumentos(bench.session(), item.command, item.byDate ? day : invoice,
                         item.byDate ? nextDay : nextInvoice);
    const std::string limits = item.byDate ? "02410310241102" : "000012312345678";
    const std::string expected = "R" + windows1252().encode(item.command) + limits;
    EXPECT_EQ(bench.printer().commands(), Sent{expected});
  }
}

TEST(Reprint, OneInvoiceIsARangeOfItselfAndAFailureShowsInTheOutcomeAlone) {
  DocumentBench bench;
  reimprimirFactura(bench.session(), number(125));
  EXPECT_EQ(bench.printer().commands(), Sent{"RF00001250000125"});
  bench.silence("RF00001250000125");
  reimprimirFactura(bench.session(), number(125));
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
}

TEST(Commands, ValueThatCannotBeSentIsRaisedBeforeAnythingIs) {
  using S = PrinterSession;
  const Date beyond{3e6};
  const struct {
    std::function<void(S&)> send;
    int error;
    const char* reason;
  } kCases[] = {
      {[](S& s) { SetFooter(s, -65, L""); }, 5, "below the first character"},
      {[](S& s) { SetFooter(s, 192, L""); }, 5, "behind the last character"},
      {[](S& s) { SetFooter(s, 2147483647, L""); }, 5, "far behind it"},
      {[=](S& s) { SetDate(s, beyond); }, 5, "a year of five digits"},
      {[=](S& s) { SetTime(s, beyond); }, 5, "a time of such a year"},
      {[=](S& s) { reimprimirDocumentos(s, L"f", dateLimit(kMorning), dateLimit(beyond)); }, 5,
       "such a limit"},
      {[](S& s) { reimprimirDocumentos(s, L"f", numberLimit(1), dateLimit(kMorning)); }, 13,
       "a number where a date is needed"},
      {[](S& s) { reimprimirDocumentos(s, L"F", numberLimit(1), dateLimit(kMorning)); }, 13,
       "a date where a number is needed"},
  };
  for (const auto& item : kCases) {
    DocumentBench bench;
    EXPECT_EQ(errorOf([&] { item.send(bench.session()); }), item.error) << item.reason;
    EXPECT_TRUE(bench.printer().commands().empty()) << item.reason;
  }
}

}  // namespace
}  // namespace corvid
