#include "com/printer_response1_object.h"

namespace corvid {

STDMETHODIMP PrinterResponse1Object::loadFake() {
  return call([&] { record_->loadFake(); });
}

STDMETHODIMP PrinterResponse1Object::loadFromResponse(BSTR s) {
  return call([&] { record_->loadFromResponse(viewOf(s)); });
}

STDMETHODIMP PrinterResponse1Object::toString(BSTR* ret) {
  return giveResult(ret, [&] { return record_->toString(); });
}

}  // namespace corvid
