// The closures that a query found, for hosts.
#pragma once

#include "com/closure_enumerator.h"
#include "com/dispatch_object.h"
#include "corvid_interfaces.h"

namespace corvid {

// Places count from 1. A place gives the same object every time; the list never changes.
class ColeccionZMFObject final : public DispatchObject<IColeccionZMF, ::ColeccionZMF> {
 public:
  explicit ColeccionZMFObject(ClosureList closures) : closures_(std::move(closures)) {}

  // Index is a number, rounded half to even; raises subscript out of range (9) outside the list.
  STDMETHODIMP get_Item(VARIANT Index, IReporteZMF** ret) override;
  STDMETHODIMP get_Count(LONG* ret) override;
  // A new walk, from the first closure on.
  STDMETHODIMP _NewEnum(IUnknown** ret) override;

 private:
  ClosureList closures_;
};

}  // namespace corvid
