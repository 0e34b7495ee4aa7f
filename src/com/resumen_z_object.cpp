#include "com/resumen_z_object.h"

#include "com/own_object.h"
#include "com/printer_fiscal_object.h"

namespace corvid {

STDMETHODIMP ResumenZObject::load(IPrinterFiscal* printer) {
  return call(
      [&] { record_->load(requireOwn<PrinterFiscalObject>(printer)->session().exchange()); });
}

STDMETHODIMP ResumenZObject::toString(BSTR* ret) {
  return giveResult(ret, [&] { return record_->toString(); });
}

}  // namespace corvid
