#include "windows/folders.h"

#include "windows/owned_handle.h"

#include <windows.h>
// Needs windows.h in front of it.
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
  std::array<char, MAX_PATH> path{};
  if (FAILED(SHGetSpecialFolderLocation(nullptr, csidl, list.put()))) return {};
  if (SHGetPathFromIDListA(list.get(), path.data()) == FALSE) return {};
  path.back() = '\0';
  return codePage_.decode(path.data());
}

}  // namespace corvid
