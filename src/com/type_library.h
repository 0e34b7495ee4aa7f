// The type library that this module carries as a resource.
#pragma once

#include "com/com_ptr.h"
#include "com/platform.h"

namespace corvid {

// Loads the module's own type library; the registry is not asked for it.
[[nodiscard]] HRESULT openTypeLibrary(ComPtr<ITypeLib>& library) noexcept;

// The description of an interface or a class; loads the library each time, which the system caches.
[[nodiscard]] HRESULT findTypeInfo(REFGUID id, ComPtr<ITypeInfo>& info) noexcept;

}  // namespace corvid
