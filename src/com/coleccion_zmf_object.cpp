#include "com/coleccion_zmf_object.h"

#include "basic/conversions.h"
#include "com/variant_conversions.h"

namespace corvid {
namespace {

ComPtr<IReporteZMF> closureAt(const ClosureList& closures, std::int32_t place) {
  if (place < 1 || static_cast<std::size_t>(place) > closures->size()) throw subscriptOutOfRange();
  return (*closures)[static_cast<std::size_t>(place) - 1];
}

}  // namespace

STDMETHODIMP ColeccionZMFObject::get_Item(VARIANT Index, IReporteZMF** ret) {
  return giveResult(ret, [&] { return closureAt(closures_, toInt32(toDecimal(Index))); });
}

STDMETHODIMP ColeccionZMFObject::get_Count(LONG* ret) {
  return give(ret, static_cast<std::int32_t>(closures_->size()));
}

STDMETHODIMP ColeccionZMFObject::_NewEnum(IUnknown** ret) {
  return giveResult(ret, [&] { return makeObject<ClosureEnumerator>(closures_); });
}

}  // namespace corvid
