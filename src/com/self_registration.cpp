#include "com/self_registration.h"

#include "com/bstr.h"
#include "com/guard.h"
#include "com/module.h"
#include "com/registry_entries.h"
#include "com/type_library.h"
#include "corvid_interfaces.h"

#include <algorithm>
#include <functional>
#include <string>

namespace corvid {
namespace {

constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr WORD kMajorVersion = 1;
constexpr WORD kMinorVersion = 0;

bool writeClasses(const std::wstring& path) {
  return std::ranges::all_of(publicClasses(), [&](const PublicClass& one) {
    return std::ranges::all_of(registryEntries(one, path), writeEntry);
  });
}

bool removeClass(const PublicClass& one) {
  auto entries = registryEntries(one, {});
  // A key can only go when its children are gone. What fails does not keep the others.
  std::ranges::reverse(entries);
  return std::ranges::count_if(entries, std::not_fn(removeEntry)) == 0;
}

HRESULT registerTypeLibrary() {
  ComPtr<ITypeLib> library;
  const HRESULT result = openTypeLibrary(TypeLibraryUse::Register, library);
  return FAILED(result) ? SELFREG_E_TYPELIB : S_OK;
}

bool hasTypeLibrary() {
  Bstr path;
  return SUCCEEDED(QueryPathOfRegTypeLib(LIBID_PrinterFiscalCorvid, kMajorVersion, kMinorVersion,
                                         LOCALE_NEUTRAL, path.put()));
}

HRESULT removeTypeLibrary() {
  if (!hasTypeLibrary()) return S_OK;
  const HRESULT result = UnRegisterTypeLib(LIBID_PrinterFiscalCorvid, kMajorVersion, kMinorVersion,
                                           LOCALE_NEUTRAL, kSystem);
  return FAILED(result) ? SELFREG_E_TYPELIB : S_OK;
}

}  // namespace

HRESULT registerServer() noexcept {
  HRESULT result = S_OK;
  const HRESULT guard = guarded(IID_NULL, [&] {
    const std::wstring path = modulePath();
    result = path.empty() || !writeClasses(path) ? SELFREG_E_CLASS : registerTypeLibrary();
  });
  return FAILED(guard) ? guard : result;
}

HRESULT unregisterServer() noexcept {
  HRESULT result = S_OK;
  const HRESULT guard = guarded(IID_NULL, [&] {
    const HRESULT library = removeTypeLibrary();
    const auto left = std::ranges::count_if(publicClasses(), std::not_fn(removeClass));
    result = left == 0 ? library : SELFREG_E_CLASS;
  });
  return FAILED(guard) ? guard : result;
}

}  // namespace corvid
