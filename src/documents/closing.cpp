#include "documents/closing.h"

#include "protocol/closing_commands.h"

namespace corvid {
namespace {

Decimal firstMethod() { return Decimal::fromInteger(1); }

std::int16_t payInvoice(PrinterFiscal& session, const Decimal& method, Currency amount) {
  return session.Execute(invoicePaymentCommand(method, session.FormatMedio(amount.toDecimal())));
}

std::int16_t payCreditNote(PrinterFiscal& session, const Decimal& method, Currency amount) {
  return session.Execute(creditNotePaymentCommand(method, session.FormatMedio(amount.toDecimal())));
}

}  // namespace

bool SubTotal(PrinterFiscal& session, bool print) {
  return session.Execute(subtotalCommand(print)) != pfOk;
}

bool PasarDescuento(PrinterFiscal& session, double percentage) {
  return session.Execute(percentageDiscountCommand(Decimal::fromDouble(percentage))) != pfOk;
}

bool PasarMontoDescuento(PrinterFiscal& session, Currency amount) {
  return session.Execute(amountDiscountCommand(session.FormatMedio(amount.toDecimal()))) != pfOk;
}

std::int16_t descuentoGeneral(PrinterFiscal& session, bool isPercentage, bool isDiscount,
                              const Decimal& value) {
  return session.Execute(generalDiscountCommand(isPercentage, isDiscount, value));
}

std::int16_t CerrarComprobante(PrinterFiscal& session, Currency amount) {
  if (amount == Currency{}) return session.Execute(kCloseWithoutAmount);
  return payInvoice(session, firstMethod(), amount);
}

std::int16_t CerrarConMedio(PrinterFiscal& session, const Decimal& method, Currency amount) {
  return payInvoice(session, method, amount);
}

std::int16_t CerrarNotaCredito(PrinterFiscal& session) {
  return payCreditNote(session, firstMethod(), Currency{});
}

std::int16_t CerrarNotaCreditoConMedio(PrinterFiscal& session, const Decimal& method,
                                       Currency amount) {
  return payCreditNote(session, method, amount);
}

std::int16_t CancelarTransaccion(PrinterFiscal& session) {
  return session.Execute(kCancelDocument);
}

}  // namespace corvid
