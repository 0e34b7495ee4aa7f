#include "com/printer_response4_object.h"

#include "com/host_arrays.h"
#include "com/variant_conversions.h"

namespace corvid {

STDMETHODIMP PrinterResponse4Object::loadFake() {
  return call([&] { record_->loadFake(); });
}

STDMETHODIMP PrinterResponse4Object::loadFromResponse(VARIANT r) {
  return call([&] { record_->loadFromResponse(HostArray(r)); });
}

STDMETHODIMP PrinterResponse4Object::valor(VARIANT n, CURRENCY* ret) {
  return giveResult(ret, [&] { return record_->valor(toDecimal(n)); });
}

}  // namespace corvid
