// The exported entry points of an in-process automation server, with the system's names.
#pragma once

#include "registration/platform.h"

// CLASS_E_CLASSNOTAVAILABLE for a class that the library does not have.
STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object);
// S_OK when no object, window, factory or lock is alive; drops the process-wide state then.
STDAPI DllCanUnloadNow();
STDAPI DllRegisterServer();
STDAPI DllUnregisterServer();
