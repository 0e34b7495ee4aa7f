#include "com/module.h"

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) corvid::keepModuleHandle(module);
  return TRUE;
}
