// Customer data, totals and closing.
#include "com/printer_fiscal_object.h"
#include "com/variant_conversions.h"
#include "documents/closing.h"
#include "documents/customer_data.h"

namespace corvid {
namespace {

Customer toCustomer(const VARIANT& name, const VARIANT& taxId, const VARIANT& address) {
  return {toText(name), toText(taxId), toText(address)};
}

OriginalInvoice toOriginalInvoice(const VARIANT& number, const VARIANT& printerSerial,
                                  const VARIANT& date) {
  OriginalInvoice original{toOptionalText(number), toOptionalText(printerSerial), std::nullopt};
  if (!isMissing(date)) original.date = toDateOrBlank(date);
  return original;
}

// A missing argument asks for the print, Null for none.
bool toPrintFlag(const VARIANT& value) {
  if (isMissing(value)) return true;
  const Variant resolved = resolve(value);
  return resolved.type() != VT_NULL && toBoolean(resolved.value());
}

Currency toOptionalAmount(const VARIANT& value) {
  return isMissing(value) ? Currency() : toCurrency(value);
}

}  // namespace

STDMETHODIMP PrinterFiscalObject::PasarDatosCliente(VARIANT Nombre, VARIANT RIF, VARIANT Direccion,
                                                    VARIANT datosFactRel, VARIANT SerialPrinter,
                                                    VARIANT fechaFactura, VARIANT* ret) {
  return giveResult(ret, [&] {
    const Customer customer = toCustomer(Nombre, RIF, Direccion);
    const OriginalInvoice original = toOriginalInvoice(datosFactRel, SerialPrinter, fechaFactura);
    return Variant::ofInt32(corvid::PasarDatosCliente(*session_, customer, original));
  });
}

STDMETHODIMP PrinterFiscalObject::PasarDatosClienteNC(VARIANT Nombre, VARIANT RIF,
                                                      VARIANT Direccion, VARIANT datosFactRel,
                                                      VARIANT SerialPrinter, VARIANT fechaFactura,
                                                      VARIANT* ret) {
  return giveResult(ret, [&] {
    const Customer customer = toCustomer(Nombre, RIF, Direccion);
    const std::wstring invoice = toText(datosFactRel);
    const std::wstring serial = toText(SerialPrinter);
    const DateOrBlank date = toDateOrBlank(fechaFactura);
    return Variant::ofInt32(
        corvid::PasarDatosClienteNC(*session_, customer, invoice, serial, date));
  });
}

STDMETHODIMP PrinterFiscalObject::IniciarFactura(VARIANT Nombre, VARIANT RIF, VARIANT Direccion,
                                                 VARIANT* ret) {
  return giveResult(ret, [&] {
    const Customer customer = toCustomer(Nombre, RIF, Direccion);
    return Variant::ofInt32(corvid::IniciarFactura(*session_, customer));
  });
}

STDMETHODIMP PrinterFiscalObject::PasarDatosClientePA(VARIANT Nombre, VARIANT RIF,
                                                      VARIANT Direccion, BSTR datosFactRel,
                                                      VARIANT* ret) {
  return giveResult(ret, [&] {
    const Customer customer = toCustomer(Nombre, RIF, Direccion);
    const std::wstring invoice(viewOf(datosFactRel));
    return Variant::ofInt32(corvid::PasarDatosClientePA(*session_, customer, invoice));
  });
}

STDMETHODIMP PrinterFiscalObject::PasarDatosClienteNCPA(VARIANT Nombre, VARIANT RIF,
                                                        VARIANT Direccion, VARIANT datosFactRel,
                                                        VARIANT* ret) {
  return giveResult(ret, [&] {
    const Customer customer = toCustomer(Nombre, RIF, Direccion);
    const std::wstring invoice = toText(datosFactRel);
    return Variant::ofInt32(corvid::PasarDatosClienteNCPA(*session_, customer, invoice));
  });
}

STDMETHODIMP PrinterFiscalObject::SubTotal(VARIANT doPrint, VARIANT_BOOL* ret) {
  return giveResult(ret, [&] { return corvid::SubTotal(*session_, toPrintFlag(doPrint)); });
}

STDMETHODIMP PrinterFiscalObject::PasarDescuento(VARIANT dblPorcentaje, VARIANT_BOOL* ret) {
  return giveResult(ret,
                    [&] { return corvid::PasarDescuento(*session_, toDouble(dblPorcentaje)); });
}

STDMETHODIMP PrinterFiscalObject::PasarMontoDescuento(VARIANT dMonto, VARIANT_BOOL* ret) {
  return giveResult(ret,
                    [&] { return corvid::PasarMontoDescuento(*session_, toCurrency(dMonto)); });
}

STDMETHODIMP PrinterFiscalObject::descuentoGeneral(VARIANT isPorcentaje, VARIANT isDescuento,
                                                   VARIANT valor, VARIANT* ret) {
  return giveResult(ret, [&] {
    const bool isPercentage = toBoolean(isPorcentaje);
    const bool isDiscount = toBoolean(isDescuento);
    const Decimal value = toDecimal(valor);
    return Variant::ofInt16(corvid::descuentoGeneral(*session_, isPercentage, isDiscount, value));
  });
}

STDMETHODIMP PrinterFiscalObject::CerrarComprobante(VARIANT Monto, short* ret) {
  return giveResult(ret,
                    [&] { return corvid::CerrarComprobante(*session_, toOptionalAmount(Monto)); });
}

STDMETHODIMP PrinterFiscalObject::CerrarConMedio(VARIANT IndiceMedio, VARIANT Monto, short* ret) {
  return giveResult(ret, [&] {
    const Decimal means = toDecimal(IndiceMedio);
    return corvid::CerrarConMedio(*session_, means, toCurrency(Monto));
  });
}

STDMETHODIMP PrinterFiscalObject::CerrarNotaCredito(short* ret) {
  return giveResult(ret, [&] { return corvid::CerrarNotaCredito(*session_); });
}

STDMETHODIMP PrinterFiscalObject::CerrarNotaCreditoConMedio(VARIANT IndiceMedio, VARIANT Monto,
                                                            short* ret) {
  return giveResult(ret, [&] {
    const Decimal means = toDecimal(IndiceMedio);
    return corvid::CerrarNotaCreditoConMedio(*session_, means, toCurrency(Monto));
  });
}

STDMETHODIMP PrinterFiscalObject::CerrarDevolucion(VARIANT MedioPago, VARIANT MontoDevuelto,
                                                   short* ret) {
  return CerrarNotaCreditoConMedio(MedioPago, MontoDevuelto, ret);
}

STDMETHODIMP PrinterFiscalObject::CancelarTransaccion(short* ret) {
  return giveResult(ret, [&] { return corvid::CancelarTransaccion(*session_); });
}

}  // namespace corvid
