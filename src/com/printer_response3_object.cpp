#include "com/printer_response3_object.h"

#include "com/host_arrays.h"
#include "com/variant_conversions.h"

namespace corvid {
STDMETHODIMP PrinterResponse3Object::loadFake() {
  return call([&] { record_->loadFake(); });
}

STDMETHODIMP PrinterResponse3Object::loadFromResponse(VARIANT v) {
  return call([&] { record_->loadFromResponse(HostArray(v)); });
}

STDMETHODIMP PrinterResponse3Object::Flag(short n, short* ret) {
  return giveResult(ret, [&] { return record_->Flag(n); });
}

STDMETHODIMP PrinterResponse3Object::imagenIncluido(VARIANT t, BSTR* ret) {
  return giveResult(ret, [&] { return RatesRecord::imagenIncluido(toBoolean(t)); });
}

STDMETHODIMP PrinterResponse3Object::toString(BSTR* ret) {
  return giveResult(ret, [&] { return record_->toString(); });
}

}  // namespace corvid
