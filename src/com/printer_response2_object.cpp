#include "com/printer_response2_object.h"

#include "com/host_arrays.h"

namespace corvid {

STDMETHODIMP PrinterResponse2Object::loadFake() {
  return call([&] { record_->loadFake(); });
}

STDMETHODIMP PrinterResponse2Object::loadFromResponse(VARIANT* v) {
  return call([&] { record_->loadFromResponse(HostArray(behind(v))); });
}

STDMETHODIMP PrinterResponse2Object::toString(BSTR* ret) {
  return giveResult(ret, [&] { return record_->toString(); });
}

}  // namespace corvid
