// The exported entry points of an in-process automation server, with the system's names.
#include "com/automation_library.h"
#include "com/class_factory.h"
#include "com/com_ptr.h"
#include "com/module.h"
#include "com/self_registration.h"

#include <new>

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const corvid::PublicClass* found = corvid::findPublicClass(classId);
  if (found == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  const auto factory =
      corvid::ComPtr<IClassFactory>::adopt(new (std::nothrow) corvid::ClassFactory(*found));
  return factory ? factory->QueryInterface(id, object) : E_OUTOFMEMORY;
}

// S_OK when no object, window, factory or lock is alive; drops the library's state then. It stays
// loaded while another thread that had objects still runs.
STDAPI DllCanUnloadNow() {
  if (corvid::ModuleCount::value() != 0) return S_FALSE;
  return corvid::AutomationLibrary::discard() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() { return corvid::registerServer(); }

STDAPI DllUnregisterServer() { return corvid::unregisterServer(); }
