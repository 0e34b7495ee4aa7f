// Prints what registration writes, for the packages that write it themselves.
//
//   registry_rows
//
// One row a line, UTF-8, five fields with tabs between them: the number of its group, "own",
// "shared" or "file", "own" or "other" for the view, the key below the tree of classes, and, but
// for files, the value as name=text. A key without any value has an empty field. <file> stands for
// the library's path. See com/registry_entries.h for what these are.
#include "com/registry_entries.h"
#include "com/type_library.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <span>

namespace {

using corvid::RegistryEntry;
using corvid::RegistryGroup;
using corvid::RegistryView;

constexpr const wchar_t* kFile = L"<file>";

void print(const std::wstring& line) {
  const auto length = static_cast<int>(line.size());
  std::string bytes(line.size() * 3, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, line.data(), length, bytes.data(),
                                       static_cast<int>(bytes.size()), nullptr, nullptr);
  std::fwrite(bytes.data(), 1, static_cast<std::size_t>(size), stdout);
}

std::wstring placed(int group, const wchar_t* kind, RegistryView view, const std::wstring& key) {
  const wchar_t* viewName = view == RegistryView::Own ? L"own" : L"other";
  return std::to_wstring(group) + L"\t" + kind + L"\t" + viewName + L"\t" + key;
}

void print(int group, const wchar_t* kind, std::span<const RegistryEntry> entries) {
  for (const RegistryEntry& entry : entries) {
    const std::wstring name = entry.valueName == nullptr ? L"" : entry.valueName;
    print(placed(group, kind, entry.view, entry.key) + L"\t" +
          (entry.text ? name + L"=" + *entry.text : L"") + L"\n");
  }
}

void print(int number, const RegistryGroup& group) {
  print(number, L"own", group.own);
  print(number, L"shared", group.shared);
  for (const corvid::RegistryPlace& place : group.files) {
    print(placed(number, L"file", place.view, place.key) + L"\n");
  }
}

int printAll() {
  int number = 0;
  for (const corvid::PublicClass& one : corvid::publicClasses()) {
    print(number++, corvid::entriesOf(one, kFile));
  }
  corvid::ComPtr<ITypeLib> library;
  if (FAILED(corvid::openTypeLibrary(library))) return EXIT_FAILURE;
  const auto group = corvid::entriesOf(*library.get(), kFile);
  if (!group) return EXIT_FAILURE;
  print(number, *group);
  return EXIT_SUCCESS;
}

}  // namespace

int main() {
  _setmode(_fileno(stdout), _O_BINARY);
  return printAll();
}
