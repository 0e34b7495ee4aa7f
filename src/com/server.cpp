// The exported entry points of an in-process automation server, with the system's names.
#include "com/automation_library.h"
#include "com/class_factory.h"
#include "com/com_object.h"
#include "com/com_ptr.h"
#include "com/guard.h"
#include "com/module.h"
#include "com/self_registration.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const corvid::PublicClass* found = corvid::findPublicClass(classId);
  if (found == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  corvid::ComPtr<IClassFactory> factory;
  const HRESULT made = corvid::guarded(IID_IClassFactory, [&] {
    factory = corvid::ComPtr<IClassFactory>::adopt(new corvid::ClassFactory(*found));
  });
  return factory ? factory->QueryInterface(id, object) : made;
}

// S_OK when no object, window, factory or lock is alive; drops the library's state then. It stays
// loaded while another thread that had objects still runs.
STDAPI DllCanUnloadNow() {
  corvid::ComObject::deleteOrphans();
  if (corvid::ModuleLocks::areSet() || corvid::ModuleCount::value() != 0) return S_FALSE;
  return corvid::AutomationLibrary::discard() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return corvid::registerServer(corvid::ClassesRoot::machine(), corvid::modulePath());
}

STDAPI DllUnregisterServer() {
  return corvid::unregisterServer(corvid::ClassesRoot::machine(), corvid::modulePath());
}

// "user" registers for the current user alone, which asks for no rights of an administrator.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  const auto root = corvid::rootNamedBy(commandLine);
  if (!root) return E_INVALIDARG;
  return install != FALSE ? corvid::registerServer(*root, corvid::modulePath())
                          : corvid::unregisterServer(*root, corvid::modulePath());
}
