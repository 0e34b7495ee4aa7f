#include "documents/closing.h"

#include "protocol/closing_commands.h"

namespace corvid {
namespace {

Decimal firstMethod() { return Decimal::fromInteger(1); }

std::int16_t payInvoice(PrinterSession& session, const Decimal& method, Currency amount) {
  return session.Execute(invoicePaymentCommand(method, session.FormatMedio(amount.toDecimal())));
}

std::int16_t payCreditNote(PrinterSession& session, const Decimal& method, Currency amount) {
  return session.Execute(creditNotePaymentCommand(method, session.FormatMedio(amount.toDecimal())));
}

}  // namespace

bool SubTotal(PrinterSession& session, bool print) {
  return session.Execute(subtotalCommand(print)) != pfOk;
}

bool PasarDescuento(PrinterSession& session, double percentage) {
  return session.Execute(percentageDiscountCommand(Decimal::fromDouble(percentage))) != pfOk;
}

bool PasarMontoDescuento(PrinterSession& session, Currency amount) {
  return session.Execute(amountDiscountCommand(session.FormatMedio(amount.toDecimal()))) != pfOk;
}

std::int16_t descuentoGeneral(PrinterSession& session, bool isPercentage, bool isDiscount,
                              const Decimal& value) {
  return session.Execute(generalDiscountCommand(isPercentage, isDiscount, value));
}

std::int16_t CerrarComprobante(PrinterSession& session, Currency amount) {
  if (amount == Currency{}) return session.Execute(kCloseWithoutAmount);
  return payInvoice(session, firstMethod(), amount);
}

std::int16_t CerrarConMedio(PrinterSession& session, const Decimal& method, Currency amount) {
  return payInvoice(session, method, amount);
}

std::int16_t CerrarNotaCredito(PrinterSession& session) {
  return payCreditNote(session, firstMethod(), Currency{});
}

std::int16_t CerrarNotaCreditoConMedio(PrinterSession& session, const Decimal& method,
                                       Currency amount) {
  return payCreditNote(session, method, amount);
}

std::int16_t CancelarTransaccion(PrinterSession& session) {
  return session.Execute(kCancelDocument);
}

}  // namespace corvid
