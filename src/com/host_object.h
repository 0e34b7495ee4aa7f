// Late-bound calls on the host's own objects.
#pragma once

#include "com/platform.h"
#include "com/variant.h"

#include <vector>

namespace corvid {

// The value of a property. Raises no such member (438) for an object without it, and what the
// object raised as an HRESULT.
[[nodiscard]] Variant propertyOf(IDispatch& object, const wchar_t* name);

// Calls a method with its arguments in their written order; raises as propertyOf does.
void callMethod(IDispatch& object, const wchar_t* name, std::vector<Variant> arguments);

}  // namespace corvid
