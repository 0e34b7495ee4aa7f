#include "com/self_registration.h"

#include "com/guard.h"
#include "com/registry_entries.h"
#include "com/type_library.h"
#include "windows/same_file.h"

#include <algorithm>
#include <string_view>

namespace corvid {
namespace {

using Entries = std::vector<RegistryEntry>;

HRESULT resultOf(LSTATUS status, HRESULT otherwise) {
  if (status == ERROR_SUCCESS) return S_OK;
  return status == ERROR_ACCESS_DENIED ? E_ACCESSDENIED : otherwise;
}

// Of two results the one that tells more: missing rights, then the earlier failure.
HRESULT worse(HRESULT earlier, HRESULT later) {
  return later == E_ACCESSDENIED || SUCCEEDED(earlier) ? later : earlier;
}

HRESULT write(const ClassesRoot& root, const Entries& entries, HRESULT otherwise) {
  for (const RegistryEntry& entry : entries) {
    const LSTATUS status = root.write(entry);
    if (status != ERROR_SUCCESS) return resultOf(status, otherwise);
  }
  return S_OK;
}

HRESULT write(const ClassesRoot& root, const RegistryGroup& group, HRESULT otherwise) {
  const HRESULT result = write(root, group.own, otherwise);
  return FAILED(result) ? result : write(root, group.shared, otherwise);
}

// Children before their parents: a key can only go when it is empty.
HRESULT remove(const ClassesRoot& root, const Entries& entries, HRESULT otherwise) {
  HRESULT result = S_OK;
  std::for_each(entries.rbegin(), entries.rend(), [&](const RegistryEntry& entry) {
    result = worse(result, resultOf(root.remove(entry), otherwise));
  });
  return result;
}

// Entries that name no file at all are what an incomplete removal left.
HRESULT remove(const ClassesRoot& root, const RegistryGroup& group, const std::wstring& file,
               HRESULT otherwise) {
  const std::wstring named = root.read(group.files.front());
  if (!named.empty() && !isSameFile(named, file)) return S_OK;
  const HRESULT result = remove(root, group.own, otherwise);
  const auto namesFile = [&](const RegistryPlace& place) { return !root.read(place).empty(); };
  if (std::ranges::any_of(group.files, namesFile)) return result;
  return worse(result, remove(root, group.shared, otherwise));
}

HRESULT writeClasses(const ClassesRoot& root, const std::wstring& file) {
  for (const PublicClass& one : publicClasses()) {
    const HRESULT result = write(root, entriesOf(one, file), SELFREG_E_CLASS);
    if (FAILED(result)) return result;
  }
  return S_OK;
}

HRESULT removeClasses(const ClassesRoot& root, const std::wstring& file) {
  HRESULT result = S_OK;
  for (const PublicClass& one : publicClasses()) {
    result = worse(result, remove(root, entriesOf(one, file), file, SELFREG_E_CLASS));
  }
  return result;
}

std::optional<RegistryGroup> typeLibraryEntries(const std::wstring& file) {
  ComPtr<ITypeLib> library;
  if (FAILED(openTypeLibrary(library))) return std::nullopt;
  return entriesOf(*library.get(), file);
}

HRESULT writeTypeLibrary(const ClassesRoot& root, const std::wstring& file) {
  const auto group = typeLibraryEntries(file);
  return group ? write(root, *group, SELFREG_E_TYPELIB) : SELFREG_E_TYPELIB;
}

HRESULT removeTypeLibrary(const ClassesRoot& root, const std::wstring& file) {
  const auto group = typeLibraryEntries(file);
  return group ? remove(root, *group, file, SELFREG_E_TYPELIB) : SELFREG_E_TYPELIB;
}

}  // namespace

std::optional<ClassesRoot> rootNamedBy(const wchar_t* commandLine) noexcept {
  if (commandLine == nullptr || *commandLine == L'\0') return ClassesRoot::machine();
  if (CompareStringOrdinal(commandLine, -1, L"user", -1, TRUE) != CSTR_EQUAL) return std::nullopt;
  return ClassesRoot::user();
}

HRESULT registerServer(const ClassesRoot& root, const std::wstring& file) noexcept {
  HRESULT result = S_OK;
  const HRESULT guard = guarded(IID_NULL, [&] {
    result = file.empty() ? SELFREG_E_CLASS : writeClasses(root, file);
    if (SUCCEEDED(result)) result = writeTypeLibrary(root, file);
  });
  return FAILED(guard) ? guard : result;
}

HRESULT unregisterServer(const ClassesRoot& root, const std::wstring& file) noexcept {
  HRESULT result = S_OK;
  const HRESULT guard = guarded(IID_NULL, [&] {
    result = removeClasses(root, file);
    result = worse(result, removeTypeLibrary(root, file));
  });
  return FAILED(guard) ? guard : result;
}

}  // namespace corvid
