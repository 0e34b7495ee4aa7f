#include "com/class_factory.h"

#include "com/com_ptr.h"
#include "com/guard.h"

namespace corvid {

STDMETHODIMP ClassFactory::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
  *object = static_cast<IClassFactory*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() { return ++references_; }

STDMETHODIMP_(ULONG) ClassFactory::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  ComPtr<IUnknown> created;
  const HRESULT result =
      guarded(IID_IClassFactory, [&] { created = ComPtr<IUnknown>::adopt(made_.create()); });
  return created ? created->QueryInterface(id, object) : result;
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (lock != FALSE) {
    ModuleCount::add();
  } else {
    ModuleCount::subtract();
  }
  return S_OK;
}

}  // namespace corvid
