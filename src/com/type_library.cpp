#include "com/type_library.h"

#include "com/module.h"

#include <string>

namespace corvid {

HRESULT openTypeLibrary(ComPtr<ITypeLib>& library) noexcept {
  const std::wstring path = modulePath();
  if (path.empty()) return E_FAIL;
  return LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put());
}

HRESULT findTypeInfo(REFGUID id, ComPtr<ITypeInfo>& info) noexcept {
  ComPtr<ITypeLib> library;
  const HRESULT result = openTypeLibrary(library);
  return FAILED(result) ? result : library->GetTypeInfoOfGuid(id, info.put());
}

}  // namespace corvid
