// The walk over a list of closures that a host's loop makes.
#pragma once

#include "com/com_ptr.h"
#include "com/list_enumerator.h"
#include "corvid_interfaces.h"

namespace corvid {

// A closure as a value of the host's.
[[nodiscard]] inline VARIANT closureValue(const ComPtr<IReporteZMF>& closure) {
  VARIANT value;
  VariantInit(&value);
  V_VT(&value) = VT_DISPATCH;
  V_DISPATCH(&value) = ComPtr(closure).detach();
  return value;
}

using ClosureEnumerator = ListEnumerator<IEnumVARIANT, VARIANT, ComPtr<IReporteZMF>, closureValue>;

// Shared by a collection and the walks over it, which may outlive it.
using ClosureList = ClosureEnumerator::List;

}  // namespace corvid
