// Non-fiscal text, reports, programmed lines, clock, cashier, training, flags, reprints.
#include "basic/conversions.h"
#include "com/printer_fiscal_object.h"
#include "com/variant_conversions.h"
#include "documents/non_fiscal.h"

namespace corvid {
namespace {

// Converts nothing until the command asks for it.
ReprintLimit toReprintLimit(const VARIANT& value) {
  return {[&value] { return toDate(value); }, [&value] { return toDecimal(value); }};
}

}  // namespace

STDMETHODIMP PrinterFiscalObject::PrintNoFiscal(VARIANT sText, VARIANT bCerrar, short* ret) {
  return giveResult(ret, [&] {
    const std::wstring text = toText(sText);
    return corvid::PrintNoFiscal(*session_, text, toBoolean(bCerrar));
  });
}

STDMETHODIMP PrinterFiscalObject::ReporteDiario(VARIANT sRango, VARIANT sTipo, short* ret) {
  return giveResult(ret, [&] {
    const std::wstring range = toText(sRango);
    return corvid::ReporteDiario(*session_, range, toText(sTipo));
  });
}

STDMETHODIMP PrinterFiscalObject::SetHeader(VARIANT nLineNumber, VARIANT sText, short* ret) {
  return giveResult(ret, [&] {
    const std::wstring line = toText(nLineNumber);
    return corvid::SetHeader(*session_, line, toText(sText));
  });
}

STDMETHODIMP PrinterFiscalObject::SetFooter(VARIANT nLineNumber, VARIANT sText, short* ret) {
  return giveResult(ret, [&] {
    const std::int32_t line = toInt32(toDecimal(nLineNumber));
    return corvid::SetFooter(*session_, line, toText(sText));
  });
}

STDMETHODIMP PrinterFiscalObject::SetDate(VARIANT dtFecha, short* ret) {
  return giveResult(ret, [&] { return corvid::SetDate(*session_, toDate(dtFecha)); });
}

STDMETHODIMP PrinterFiscalObject::SetTime(VARIANT dtFecha, short* ret) {
  return giveResult(ret, [&] { return corvid::SetTime(*session_, toDate(dtFecha)); });
}

STDMETHODIMP PrinterFiscalObject::Login(VARIANT nCajero, short* ret) {
  return giveResult(ret, [&] { return corvid::Login(*session_, toDecimal(nCajero)); });
}

STDMETHODIMP PrinterFiscalObject::Logoff(short* ret) {
  return giveResult(ret, [&] { return corvid::Logoff(*session_); });
}

STDMETHODIMP PrinterFiscalObject::StartTraining(short* ret) {
  return giveResult(ret, [&] { return corvid::StartTraining(*session_); });
}

STDMETHODIMP PrinterFiscalObject::EndTraining(short* ret) {
  return giveResult(ret, [&] { return corvid::EndTraining(*session_); });
}

STDMETHODIMP PrinterFiscalObject::setFlag(VARIANT Flag, VARIANT Value, VARIANT* ret) {
  return giveResult(ret, [&] {
    const Decimal flag = toDecimal(Flag);
    return Variant::ofInt16(corvid::setFlag(*session_, flag, toDecimal(Value)));
  });
}

STDMETHODIMP PrinterFiscalObject::reimprimirDocumentos(BSTR cmd, VARIANT arg1, VARIANT arg2) {
  return call([&] {
    corvid::reimprimirDocumentos(*session_, std::wstring(viewOf(cmd)), toReprintLimit(arg1),
                                 toReprintLimit(arg2));
  });
}

STDMETHODIMP PrinterFiscalObject::reimprimirFactura(VARIANT numero) {
  return call([&] { corvid::reimprimirFactura(*session_, toDecimal(numero)); });
}

}  // namespace corvid
