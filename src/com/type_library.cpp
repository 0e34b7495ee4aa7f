#include "com/type_library.h"

#include "com/module.h"

#include <string>

namespace corvid {

HRESULT openTypeLibrary(TypeLibraryUse use, ComPtr<ITypeLib>& library) noexcept {
  const std::wstring path = modulePath();
  if (path.empty()) return E_FAIL;
  const REGKIND kind = use == TypeLibraryUse::Register ? REGKIND_REGISTER : REGKIND_NONE;
  return LoadTypeLibEx(path.c_str(), kind, library.put());
}

HRESULT findTypeInfo(REFGUID id, ComPtr<ITypeInfo>& info) noexcept {
  ComPtr<ITypeLib> library;
  const HRESULT result = openTypeLibrary(TypeLibraryUse::Load, library);
  return FAILED(result) ? result : library->GetTypeInfoOfGuid(id, info.put());
}

}  // namespace corvid
