// The type library that this module carries as a resource.
#pragma once

#include "com/com_ptr.h"
#include "com/platform.h"

namespace corvid {

enum class TypeLibraryUse { Load, Register };

// Loads the module's own type library; Register also enters it in the registry with its full path.
[[nodiscard]] HRESULT openTypeLibrary(TypeLibraryUse use, ComPtr<ITypeLib>& library) noexcept;

// The description of an interface or a class; loads the library each time, which the system caches.
[[nodiscard]] HRESULT findTypeInfo(REFGUID id, ComPtr<ITypeInfo>& info) noexcept;

}  // namespace corvid
