#include "com/estado_documento_object.h"

#include "com/host_arrays.h"

namespace corvid {

STDMETHODIMP EstadoDocumentoObject::loadFromResponse(VARIANT* v) {
  return call([&] { record_->loadFromResponse(HostArray(behind(v))); });
}

STDMETHODIMP EstadoDocumentoObject::toString(BSTR* ret) {
  return giveResult(ret, [&] { return record_->toString(); });
}

}  // namespace corvid
