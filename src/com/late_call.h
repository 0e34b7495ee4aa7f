// Late-bound calls, carried out through the type library.
#pragma once

#include "com/platform.h"

namespace corvid {

// What IDispatch::Invoke is handed, in its own terms.
struct LateCall {
  DISPID member = 0;
  WORD flags = 0;
  DISPPARAMS* arguments = nullptr;
  VARIANT* result = nullptr;
  EXCEPINFO* exception = nullptr;
  UINT* badArgument = nullptr;
};

// Calls the member on the object's dual interface. A script's variable, which arrives as a
// reference to a Variant, fits a typed reference, and what the member leaves there is written back
// to the variable. Null fits a text, as an empty one, and an object, as Nothing.
[[nodiscard]] HRESULT invoke(ITypeInfo& info, void* object, const LateCall& call);

}  // namespace corvid
