// Subtotal, discounts, closing with payment, cancellation.
#pragma once

#include "basic/currency.h"
#include "basic/decimal.h"
#include "session/printer_session.h"

#include <cstdint>
#include <optional>

namespace corvid {

// These three return Execute's result as a Boolean: True is a failure.
bool SubTotal(PrinterSession& session, bool print);
bool PasarDescuento(PrinterSession& session, double percentage);  // cut to hundredths of a percent
bool PasarMontoDescuento(PrinterSession& session, Currency amount);

// The rest return Execute's result. Nothing is checked before sending; a payment method (1 to
// 99) is rounded half away from zero.
std::int16_t descuentoGeneral(PrinterSession& session, bool isPercentage, bool isDiscount,
                              const Decimal& value);
// Nothing and 0 close without an amount.
std::int16_t CerrarComprobante(PrinterSession& session, const std::optional<Currency>& amount);
std::int16_t CerrarConMedio(PrinterSession& session, const Decimal& method, Currency amount);
std::int16_t CerrarNotaCredito(PrinterSession& session);
// Also the way of CerrarDevolucion.
std::int16_t CerrarNotaCreditoConMedio(PrinterSession& session, const Decimal& method,
                                       Currency amount);
std::int16_t CancelarTransaccion(PrinterSession& session);

}  // namespace corvid
