#include "com/registry_entries.h"

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/type_descriptions.h"
#include "corvid_interfaces.h"

#include <array>

namespace corvid {
namespace {

constexpr std::size_t kGuidLength = 39;  // with braces and the closing NUL
constexpr const wchar_t* kLibraryVersion = L"1.0";
constexpr std::array<const wchar_t*, 2> kSystems = {L"win32", L"win64"};
constexpr std::size_t kOwnSystem = sizeof(void*) == 8 ? 1 : 0;

// The system's marshallers for what a type library describes.
constexpr const wchar_t* kAutomationMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kDispatchMarshaller = L"{00020420-0000-0000-C000-000000000046}";
constexpr WORD kAutomation = TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION;

std::wstring guidText(const GUID& id) {
  std::array<wchar_t, kGuidLength> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

bool isInterface(const TYPEATTR& type) {
  return (type.typekind == TKIND_INTERFACE || type.typekind == TKIND_DISPATCH) &&
         (type.wTypeFlags & (kAutomation | TYPEFLAG_FDISPATCHABLE)) != 0;
}

// In both views, as the system does it: an object that a host hands to a program of the other
// bitness is called by this description too.
void addInterface(const TYPEATTR& type, const std::wstring& name, const std::wstring& library,
                  std::vector<RegistryEntry>& entries) {
  const std::wstring key = L"Interface\\" + guidText(type.guid);
  const wchar_t* marshaller =
      (type.wTypeFlags & kAutomation) != 0 ? kAutomationMarshaller : kDispatchMarshaller;
  for (const auto view : {RegistryView::Own, RegistryView::Other}) {
    entries.push_back({key, name, nullptr, view});
    // Nothing asks for the first any more; it is there since the system writes it.
    entries.push_back({key + L"\\ProxyStubClsid", marshaller, nullptr, view});
    entries.push_back({key + L"\\ProxyStubClsid32", marshaller, nullptr, view});
    entries.push_back({key + L"\\TypeLib", library, nullptr, view});
    entries.push_back({key + L"\\TypeLib", kLibraryVersion, L"Version", view});
  }
}

// False when a description cannot be read.
bool addInterfaces(ITypeLib& library, const std::wstring& id, std::vector<RegistryEntry>& entries) {
  for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> info;
    if (FAILED(library.GetTypeInfo(i, info.put()))) return false;
    const TypeAttributes attributes = attributesOf(*info.get());
    Bstr name;
    if (!attributes || FAILED(library.GetDocumentation(static_cast<INT>(i), name.put(), nullptr,
                                                       nullptr, nullptr))) {
      return false;
    }
    if (isInterface(*attributes)) {
      addInterface(*attributes, std::wstring(name.view()), id, entries);
    }
  }
  return true;
}

}  // namespace

RegistryGroup entriesOf(const PublicClass& one, const std::wstring& file) {
  const std::wstring progId = std::wstring(L"PrinterFiscalCorvid.") + one.name;
  const std::wstring id = guidText(one.id);
  const std::wstring key = L"CLSID\\" + id;
  const std::wstring server = key + L"\\InprocServer32";
  RegistryGroup group;
  group.own = {{key, one.description},
               {key + L"\\ProgID", progId},
               {key + L"\\Programmable", std::nullopt},
               {key + L"\\TypeLib", guidText(LIBID_PrinterFiscalCorvid)},
               {key + L"\\Version", kLibraryVersion},
               {server, file},
               {server, L"Apartment", L"ThreadingModel"}};
  group.shared = {{progId, one.description}, {progId + L"\\CLSID", id}};
  group.files = {{server}, {server, RegistryView::Other}};
  return group;
}

std::optional<RegistryGroup> entriesOf(ITypeLib& library, const std::wstring& file) {
  Bstr help;
  const LibraryAttributes attributes = attributesOf(library);
  if (!attributes ||
      FAILED(library.GetDocumentation(MEMBERID_NIL, nullptr, help.put(), nullptr, nullptr))) {
    return std::nullopt;
  }
  const std::wstring id = guidText(attributes->guid);
  const std::wstring key = L"TypeLib\\" + id;
  const std::wstring version = key + L"\\" + kLibraryVersion;
  const std::wstring files = version + L"\\0\\";
  // The image on the disk is the file's matter, not the library's.
  const unsigned flags = attributes->wLibFlags & ~unsigned{LIBFLAG_FHASDISKIMAGE};
  RegistryGroup group;
  group.own = {{files + kSystems[kOwnSystem], file}};
  // There is no help file. A folder here would outlive the copy that lies in it.
  group.shared = {{key, std::nullopt},
                  {version, std::wstring(help.view())},
                  {version + L"\\0", std::nullopt},
                  {version + L"\\FLAGS", std::to_wstring(flags)},
                  {version + L"\\HELPDIR", L""}};
  group.files = {{files + kSystems[kOwnSystem]}, {files + kSystems[1 - kOwnSystem]}};
  if (!addInterfaces(library, id, group.shared)) return std::nullopt;
  return group;
}

}  // namespace corvid
