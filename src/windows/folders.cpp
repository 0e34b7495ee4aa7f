#include "windows/folders.h"

#include "windows/owned_handle.h"

#include <windows.h>
// Needs windows.h first.
#include <shlobj.h>

#include <array>

namespace corvid {
namespace {

struct ItemListTraits {
  using Type = LPITEMIDLIST;
  static constexpr Type none() { return nullptr; }
  static void release(Type list) { CoTaskMemFree(list); }
};

}  // namespace

std::wstring WindowsFolders::SHgetFolder(int csidl) {
  Owned<ItemListTraits> list;
  std::array<wchar_t, MAX_PATH> path{};
  if (FAILED(SHGetSpecialFolderLocation(nullptr, csidl, list.put()))) return {};
  if (SHGetPathFromIDListW(list.get(), path.data()) == FALSE) return {};
  path.back() = L'\0';
  return path.data();
}

std::wstring WindowsFolders::current() {
  std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
  // Another thread may change the folder between the two calls.
  const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data());
  if (length == 0 || length >= path.size()) return L".";
  path.resize(length);
  return path;
}

}  // namespace corvid
