// Late-bound calls on the host's own objects.
#pragma once

#include "com/platform.h"
#include "com/variant.h"

#include <optional>
#include <vector>

namespace corvid {

// The value of a property, nothing for an object without it; throws what the object returned as an
// HRESULT.
[[nodiscard]] std::optional<Variant> findProperty(IDispatch& object, const wchar_t* name);
// As findProperty, but throws no such member (438) for an object without it.
[[nodiscard]] Variant propertyOf(IDispatch& object, const wchar_t* name);

// Calls a method with its arguments in their written order; throws as propertyOf does.
void callMethod(IDispatch& object, const wchar_t* name, const std::vector<Variant>& arguments);

}  // namespace corvid
