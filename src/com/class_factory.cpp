#include "com/class_factory.h"

#include "com/com_ptr.h"
#include "com/guard.h"

namespace corvid {

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!isOnItsThread()) return RPC_E_WRONG_THREAD;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  ComPtr<IUnknown> created;
  const HRESULT result =
      guarded(IID_IClassFactory, [&] { created = ComPtr<IUnknown>::adopt(made_.create()); });
  return created ? created->QueryInterface(id, object) : result;
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (lock != FALSE) {
    ModuleLocks::add();
  } else {
    ModuleLocks::subtract();
  }
  return S_OK;
}

}  // namespace corvid
