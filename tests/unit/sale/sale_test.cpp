// Whole documents, through the session and over the line, onto the simulated printer's paper.
#include "shop.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

using simulator::Fault;

// 2 x 12.50 at 16 %, 1.5 x 10.00 at 8 %, an exempt one of 5.00; 10 % off, paid in cash.
void sell(PrinterSession& session) {
  ASSERT_EQ(IniciarFactura(session, {L"Ñandú, C.A.", L"J-12345678-9", L"Calle 5, casa 3"}), 0);
  ASSERT_EQ(PasarItem(session, {L"PAN", 12.5, 2, 16}), 0);
  ASSERT_EQ(PasarItem(session, {L"QUESO", 10, 1.5, 8}), 0);
  ASSERT_EQ(PasarItem(session, {L"LIBRO", 5, 1, 0}), 0);
  ASSERT_FALSE(SubTotal(session, true));
  ASSERT_FALSE(PasarDescuento(session, 10));
  ASSERT_EQ(CerrarConMedio(session, Decimal::fromInteger(1), money(60)), 0);
}

TEST(WholeSale, PrinterAddsUpWhatTheHostSold) {
  Shop shop;
  shop.session->Abrir(7);
  EXPECT_EQ(shop.session->state().SerialPrinter, L"Z1F0000001");
  sell(*shop.session);
  const std::string paper = shop.line.paper();
  for (const char* expected : {"Ñandú, C.A.", "J-12345678-9", "Calle 5, casa 3", "PAN", "QUESO"}) {
    EXPECT_NE(paper.find(expected), std::string::npos) << expected << "\n" << paper;
  }
  const auto& sales = shop.machine().memory.today().of(simulator::DocumentKind::Invoice);
  EXPECT_EQ(sales.count, 1);
  // Bases after the discount: 22.50 and 13.50, exempt 4.50; IVA 3.60 and 1.08.
  EXPECT_EQ(sales.total, 2250 + 1350 + 450 + 360 + 108) << paper;
  const auto record = Response1(shop.exchange());
  EXPECT_EQ(record->values.numeroUltimaFactura, 1);
  EXPECT_EQ(record->values.facturasDia, 1);
}

// Nothing that goes wrong on the line and is overcome may show on the paper.
TEST(WholeSale, PaperIsTheSameOverABadLine) {
  Shop good;
  good.session->Abrir(7);
  sell(*good.session);
  const struct {
    Fault fault;
    int times;
    const char* reason;
  } cases[] = {
      {Fault::Refuse, 3, "commands garbled on their way are sent again"},
      {Fault::ByteByByte, simulator::kForEver, "answers byte by byte"},
      {Fault::Split, simulator::kForEver, "answers in two pieces"},
      {Fault::EnquiryFirst, simulator::kForEver, "ENQ in front of answers"},
      {Fault::EndWithEot, simulator::kForEver, "blocks that end with EOT"},
      {Fault::CorruptCheck, simulator::kForEver, "check bytes of replies are not looked at"},
      {Fault::Noise, simulator::kForEver, "noise in front of answers"},
      {Fault::Silent, 2, "the printer hears nothing for a while"},
  };
  for (const auto& item : cases) {
    Shop shop;
    shop.session->Abrir(7);
    shop.line.misbehaviour().set(item.fault, item.times);
    sell(*shop.session);
    EXPECT_EQ(shop.line.paper(), good.line.paper()) << item.reason;
  }
}

}  // namespace
}  // namespace corvid
