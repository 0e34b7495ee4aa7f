#include "documents/closing.h"

#include "support/document_bench.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace corvid {
namespace {

struct Case {
  std::function<int(PrinterSession& session)> method;
  std::string command;
  const char* reason;
};

using S = PrinterSession;

const Case kCases[] = {
    {[](S& s) { return SubTotal(s, true); }, "3", "printed subtotal"},
    {[](S& s) { return SubTotal(s, false); }, "4", "shown subtotal"},
    {[](S& s) { return PasarDescuento(s, 10); }, "p-01000", "hundredths of a percent"},
    {[](S& s) { return PasarDescuento(s, 12.345); }, "p-01234", "cut, not rounded"},
    {[](S& s) { return PasarDescuento(s, 0.009); }, "p-00000", "below a hundredth"},
    {[](S& s) { return PasarDescuento(s, 8.2); }, "p-00820", "8.2 is less than 820 in binary"},
    {[](S& s) { return PasarDescuento(s, 1234.5); }, "p-123450", "more digits are not cut"},
    {[](S& s) { return PasarDescuento(s, -0.001); }, "p--00001", "cut toward minus infinity"},
    {[](S& s) { return PasarMontoDescuento(s, money(5.5)); }, "q-000000000550", "amount"},
    {[](S& s) { return descuentoGeneral(s, true, true, number(10)); }, "GP-*10,00", "percent off"},
    {[](S& s) { return descuentoGeneral(s, false, false, number(2.5)); }, "GM+*2,50", "amount on"},
    {[](S& s) { return descuentoGeneral(s, false, true, number(12345.675)); }, "GM-*12345,68",
     "no grouping, half away from zero"},
    {[](S& s) { return CerrarComprobante(s, money(0)); }, "101", "without an amount"},
    {[](S& s) { return CerrarComprobante(s, money(100)); }, "201000000010000", "with an amount"},
    {[](S& s) { return CerrarComprobante(s, money(-1)); }, "201-000000000100", "below zero"},
    {[](S& s) { return CerrarConMedio(s, number(3), money(100)); }, "203000000010000", "method 3"},
    {[](S& s) { return CerrarConMedio(s, number(3), money(0)); }, "203000000000000",
     "nothing paid"},
    {[](S& s) { return CerrarConMedio(s, number(123), money(1)); }, "2123000000000100",
     "three digits of method"},
    {[](S& s) { return CerrarConMedio(s, number(2.5), money(1)); }, "203000000000100",
     "half away from zero"},
    {[](S& s) { return CerrarConMedio(s, number(1), money(-1)); }, "201-000000000100",
     "amounts are not checked"},
    {[](S& s) { return CerrarConMedio(s, number(1), money(0.005)); }, "201000000000001",
     "half a hundredth counts up"},
    {[](S& s) { return CerrarNotaCredito(s); }, "f01000000000000", "credit note"},
    {[](S& s) { return CerrarNotaCreditoConMedio(s, number(12), money(7)); }, "f12000000000700",
     "credit note with method"},
    {[](S& s) { return CancelarTransaccion(s); }, "7", "cancellation"},
};

TEST(Closing, EachMethodSendsItsCommandAndGivesOneForAFailureInEveryKindOfResult) {
  for (const Case& item : kCases) {
    DocumentBench bench;
    bench.world().locale.locale = venezuelan();
    EXPECT_EQ(item.method(bench.session()), 0) << item.reason;
    EXPECT_EQ(bench.commands(), Sent{item.command}) << item.reason;
    bench.silence(item.command);
    EXPECT_EQ(item.method(bench.session()), 1) << item.reason;  // True, or the outcome class
    EXPECT_EQ(bench.outcome().pfError, pfCommError) << item.reason;
  }
}

TEST(Closing, PaymentWidthFollowsTheSettings) {
  DocumentBench bench({{L"DigitosMedio", L"5"}, {L"DecimalesMedio", L"0"}});
  CerrarConMedio(bench.session(), number(1), money(12.5));
  PasarMontoDescuento(bench.session(), money(7));
  EXPECT_EQ(bench.commands(), (Sent{"20100013", "q-00007"}));
}

}  // namespace
}  // namespace corvid
