// Item lines.
#include "com/printer_fiscal_object.h"
#include "com/variant_conversions.h"
#include "documents/item_lines.h"

namespace corvid {
namespace {

std::wstring toCode(const VARIANT& code) { return toOptionalText(code).value_or(std::wstring()); }

}  // namespace

// The arguments convert in their order, as a host expects of those that fail.
HRESULT PrinterFiscalObject::sendLine(ItemCommand command, const HostLine& line,
                                      short* ret) noexcept {
  return giveResult(ret, [&] {
    const std::wstring description = toText(line.description);
    const Currency price = toCurrency(line.price);
    const double quantity = toDouble(line.quantity);
    return command(*session_, description, price, quantity, toDouble(line.rate));
  });
}

std::int16_t PrinterFiscalObject::sendGeneral(const std::wstring& kind, const HostLine& line,
                                              const VARIANT& code) {
  const std::wstring description = toText(line.description);
  const Decimal price = toDecimal(line.price);
  const double quantity = toDouble(line.quantity);
  const double rate = toDouble(line.rate);
  return corvid::detalleGeneral(*session_, kind, description, price, quantity, rate, toCode(code));
}

HRESULT PrinterFiscalObject::sendGeneralLine(const wchar_t* kind, const HostLine& line,
                                             const VARIANT& code, short* ret) noexcept {
  return giveResult(ret, [&] { return sendGeneral(kind, line, code); });
}

STDMETHODIMP PrinterFiscalObject::PasarItem(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                            VARIANT idblCantidad, VARIANT ivmPorcentajeImpuesto,
                                            short* ret) {
  return sendLine(corvid::PasarItem,
                  {istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto}, ret);
}

STDMETHODIMP PrinterFiscalObject::RefundItem(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                             VARIANT idblCantidad, VARIANT ivmPorcentajeImpuesto,
                                             short* ret) {
  return sendLine(corvid::RefundItem,
                  {istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto}, ret);
}

STDMETHODIMP PrinterFiscalObject::AnularItem(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                             VARIANT idblCantidad, VARIANT ivmPorcentajeImpuesto,
                                             short* ret) {
  return sendLine(corvid::AnularItem,
                  {istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto}, ret);
}

STDMETHODIMP PrinterFiscalObject::PasarLineaFactura(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                                    VARIANT idblCantidad,
                                                    VARIANT ivmPorcentajeImpuesto, short* ret) {
  return PasarItem(istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto, ret);
}

STDMETHODIMP PrinterFiscalObject::detalleGeneral(VARIANT tipo, VARIANT istrDescripcion,
                                                 VARIANT ivmPrecioNeto, VARIANT idblCantidad,
                                                 VARIANT ivmPorcentajeImpuesto, VARIANT codigo,
                                                 VARIANT* ret) {
  return giveResult(ret, [&] {
    const std::wstring kind = toText(tipo);
    const HostLine line{istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto};
    return Variant::ofInt16(sendGeneral(kind, line, codigo));
  });
}

STDMETHODIMP PrinterFiscalObject::pasarLineaFacturaG(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                                     VARIANT idblCantidad,
                                                     VARIANT ivmPorcentajeImpuesto, VARIANT codigo,
                                                     short* ret) {
  return sendGeneralLine(kInvoiceLine,
                         {istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto},
                         codigo, ret);
}

STDMETHODIMP PrinterFiscalObject::anularLineaFacturaG(VARIANT istrDescripcion,
                                                      VARIANT ivmPrecioNeto, VARIANT idblCantidad,
                                                      VARIANT ivmPorcentajeImpuesto, VARIANT codigo,
                                                      short* ret) {
  return sendGeneralLine(kInvoiceVoid,
                         {istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto},
                         codigo, ret);
}

STDMETHODIMP PrinterFiscalObject::pasarLineaNCG(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                                VARIANT idblCantidad, VARIANT ivmPorcentajeImpuesto,
                                                VARIANT codigo, short* ret) {
  return sendGeneralLine(kCreditLine,
                         {istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto},
                         codigo, ret);
}

STDMETHODIMP PrinterFiscalObject::anularLineaNCG(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                                 VARIANT idblCantidad,
                                                 VARIANT ivmPorcentajeImpuesto, VARIANT codigo,
                                                 short* ret) {
  return sendGeneralLine(kCreditVoid,
                         {istrDescripcion, ivmPrecioNeto, idblCantidad, ivmPorcentajeImpuesto},
                         codigo, ret);
}

STDMETHODIMP PrinterFiscalObject::IndiceTasa(double idblTasa, short* ret) {
  return giveResult(ret, [&] { return corvid::IndiceTasa(*session_, idblTasa); });
}

}  // namespace corvid
