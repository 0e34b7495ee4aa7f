#include "documents/closing.h"

#include "documents/member.h"
#include "protocol/closing_commands.h"

namespace corvid {
namespace {

Decimal firstMethod() { return Decimal::fromInteger(1); }

std::int16_t payInvoice(PrinterSession& session, const wchar_t* name, const Decimal& method,
                        Currency amount) {
  return sendAs(session, name, [&] {
    return invoicePaymentCommand(method, session.FormatMedio(amount.toDecimal()));
  });
}

std::int16_t payCreditNote(PrinterSession& session, const wchar_t* name, const Decimal& method,
                           Currency amount) {
  return sendAs(session, name, [&] {
    return creditNotePaymentCommand(method, session.FormatMedio(amount.toDecimal()));
  });
}

}  // namespace

bool SubTotal(PrinterSession& session, bool print) {
  return sendAs(session, L"SubTotal", [&] { return subtotalCommand(print); }) != pfOk;
}

bool PasarDescuento(PrinterSession& session, double percentage) {
  return sendAs(session, L"PasarDescuento",
                [&] { return percentageDiscountCommand(Decimal::fromDouble(percentage)); }) != pfOk;
}

bool PasarMontoDescuento(PrinterSession& session, Currency amount) {
  return sendAs(session, L"PasarMontoDescuento", [&] {
           return amountDiscountCommand(session.FormatMedio(amount.toDecimal()));
         }) != pfOk;
}

std::int16_t descuentoGeneral(PrinterSession& session, bool isPercentage, bool isDiscount,
                              const Decimal& value) {
  return sendAs(session, L"descuentoGeneral",
                [&] { return generalDiscountCommand(isPercentage, isDiscount, value); });
}

std::int16_t CerrarComprobante(PrinterSession& session, const std::optional<Currency>& amount) {
  constexpr const wchar_t* kName = L"CerrarComprobante";
  const Currency paid = amount.value_or(Currency());
  if (paid != Currency()) return payInvoice(session, kName, firstMethod(), paid);
  return sendAs(session, kName, [] { return std::wstring(kCloseWithoutAmount); });
}

std::int16_t CerrarConMedio(PrinterSession& session, const Decimal& method, Currency amount) {
  return payInvoice(session, L"CerrarConMedio", method, amount);
}

std::int16_t CerrarNotaCredito(PrinterSession& session) {
  return payCreditNote(session, L"CerrarNotaCredito", firstMethod(), Currency{});
}

std::int16_t CerrarNotaCreditoConMedio(PrinterSession& session, const Decimal& method,
                                       Currency amount) {
  return payCreditNote(session, L"CerrarNotaCreditoConMedio", method, amount);
}

std::int16_t CancelarTransaccion(PrinterSession& session) {
  return sendAs(session, L"CancelarTransaccion", [] { return std::wstring(kCancelDocument); });
}

}  // namespace corvid
