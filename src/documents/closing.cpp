#include "documents/closing.h"

#include "documents/closing_commands.h"

namespace corvid {
namespace {

constexpr std::wstring_view kInvoicePayment = L"2";
constexpr std::wstring_view kCreditNotePayment = L"f";
constexpr const wchar_t* kCloseWithoutAmount = L"101";
constexpr const wchar_t* kCancel = L"7";

Decimal firstMeans() { return Decimal::fromInteger(1); }

std::int16_t pay(PrinterFiscal& session, std::wstring_view letter, const Decimal& means,
                 Currency amount) {
  return session.Execute(paymentCommand(letter, means, session.FormatMedio(amount.toDecimal())));
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
  return pay(session, kInvoicePayment, firstMeans(), amount);
}

std::int16_t CerrarConMedio(PrinterFiscal& session, const Decimal& means, Currency amount) {
  return pay(session, kInvoicePayment, means, amount);
}

std::int16_t CerrarNotaCredito(PrinterFiscal& session) {
  return pay(session, kCreditNotePayment, firstMeans(), Currency{});
}

std::int16_t CerrarNotaCreditoConMedio(PrinterFiscal& session, const Decimal& means,
                                       Currency amount) {
  return pay(session, kCreditNotePayment, means, amount);
}

std::int16_t CancelarTransaccion(PrinterFiscal& session) { return session.Execute(kCancel); }

}  // namespace corvid
