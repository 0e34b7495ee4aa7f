// Subtotal, discounts, closing with payment, cancellation.
#pragma once

#include "basic/currency.h"
#include "basic/decimal.h"
#include "session/printer_fiscal.h"

#include <cstdint>

namespace corvid {

// These three return Execute's result as a Boolean: True is a failure.
bool SubTotal(PrinterFiscal& session, bool print);
bool PasarDescuento(PrinterFiscal& session, double percentage);  // cut to hundredths of a percent
bool PasarMontoDescuento(PrinterFiscal& session, Currency amount);

// The rest return Execute's result. Nothing is checked before sending; a payment method (1 to
// 99) is rounded half away from zero.
std::int16_t descuentoGeneral(PrinterFiscal& session, bool isPercentage, bool isDiscount,
                              const Decimal& value);
// 0 closes without an amount.
std::int16_t CerrarComprobante(PrinterFiscal& session, Currency amount);
std::int16_t CerrarConMedio(PrinterFiscal& session, const Decimal& method, Currency amount);
std::int16_t CerrarNotaCredito(PrinterFiscal& session);
// Also the way of CerrarDevolucion.
std::int16_t CerrarNotaCreditoConMedio(PrinterFiscal& session, const Decimal& method,
                                       Currency amount);
std::int16_t CancelarTransaccion(PrinterFiscal& session);

}  // namespace corvid
