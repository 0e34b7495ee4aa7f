#include "com/reporte_zmf_object.h"

#include "com/host_arrays.h"
#include "com/own_object.h"
#include "com/printer_fiscal_object.h"
#include "com/variant_conversions.h"

namespace corvid {

STDMETHODIMP ReporteZMFObject::loadFromResponse(VARIANT response) {
  return call([&] { record_->loadFromResponse(HostArray(response)); });
}

STDMETHODIMP ReporteZMFObject::toString(VARIANT* ret) {
  return giveResult(ret, [&] { return Variant(Bstr(record_->toString())); });
}

STDMETHODIMP ReporteZMFObject::load(IPrinterFiscal* printer, VARIANT* numero, VARIANT_BOOL* ret) {
  return giveResult(ret, [&] {
    const auto session = requireOwn<PrinterFiscalObject>(printer);
    return record_->load(session->session().exchange(), toDecimal(behind(numero)));
  });
}

}  // namespace corvid
