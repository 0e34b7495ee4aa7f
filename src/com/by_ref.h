// Variables of the host that a call may read and write.
#pragma once

#include "com/platform.h"
#include "com/variant.h"

namespace corvid {

// The host's value as one of the given type (VT_VARIANT: as it is, without references), texts by
// the user's locale. Null is an empty text.
[[nodiscard]] HRESULT convertFromHost(const VARIANT& value, VARTYPE type, Variant& converted);

// A reference to what the value holds, or, for VT_VARIANT, to the value itself.
[[nodiscard]] VARIANT referenceTo(Variant& value, VARTYPE type) noexcept;

// Whether two values are of one kind and equal. Objects and arrays are never the same.
[[nodiscard]] bool holdSame(const VARIANT& a, const VARIANT& b) noexcept;

// Writes through the host's reference, converted to the kind of that variable. A value
// that is no reference has no variable, and nothing happens.
[[nodiscard]] HRESULT assignToHost(VARIANT& reference, Variant& value);

}  // namespace corvid
