#include "windows/system_library.h"

#include <string>

namespace corvid {

HMODULE loadSystemLibrary(const wchar_t* file) {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetSystemDirectoryW(path.data(), MAX_PATH));
  return LoadLibraryW((path + L"\\" + file).c_str());
}

}  // namespace corvid
