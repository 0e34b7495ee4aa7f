// The type library as a class browser reads it.
#pragma once

#include "com/bstr.h"
#include "com/type_descriptions.h"
#include "com/type_library.h"
#include "unit/com/automation_host.h"

#include <map>

namespace corvid::testing {

inline std::wstring nameOf(ITypeInfo& info, MEMBERID member) {
  Bstr name;
  info.GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
  return std::wstring(name.view());
}

template <class Described>
std::wstring helpOf(Described& described, long member) {
  Bstr help;
  described.GetDocumentation(member, nullptr, help.put(), nullptr, nullptr);
  return std::wstring(help.view());
}

inline std::wstring typeName(ITypeInfo& info, const TYPEDESC& type) {
  static const std::map<VARTYPE, std::wstring> names = {
      {VT_I2, L"Integer"},      {VT_I4, L"Long"},         {VT_R4, L"Single"},
      {VT_R8, L"Double"},       {VT_CY, L"Currency"},     {VT_DATE, L"Date"},
      {VT_BSTR, L"String"},     {VT_BOOL, L"Boolean"},    {VT_VARIANT, L"Variant"},
      {VT_DISPATCH, L"Object"}, {VT_UNKNOWN, L"Unknown"}, {VT_VOID, L""}};
  if (type.vt == VT_PTR) {
    const std::wstring inner = typeName(info, *type.lptdesc);
    return type.lptdesc->vt == VT_USERDEFINED ? inner : L"ByRef " + inner;
  }
  if (type.vt == VT_USERDEFINED) {
    ComPtr<ITypeInfo> named;
    info.GetRefTypeInfo(type.hreftype, named.put());
    return nameOf(*named.get(), MEMBERID_NIL);
  }
  const auto found = names.find(type.vt);
  return found == names.end() ? L"type " + std::to_wstring(type.vt) : found->second;
}

inline std::wstring defaultOf(const PARAMDESC& parameter) {
  if ((parameter.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0) return {};
  Variant value;
  VariantCopy(value.put(), &parameter.pparamdescex->varDefaultValue);
  return L" = \"" + textIn(value) + L"\"";
}

inline std::vector<std::wstring> argumentNames(ITypeInfo& info, const FUNCDESC& member) {
  std::vector<BSTR> names(static_cast<std::size_t>(member.cParams) + 1);
  UINT count = 0;
  info.GetNames(member.memid, names.data(), static_cast<UINT>(names.size()), &count);
  std::vector<std::wstring> copies;
  for (UINT i = 0; i < names.size(); ++i) {
    if (i > 0) copies.emplace_back(viewOf(names[i]));
    SysFreeString(names[i]);
  }
  return copies;
}

// In brackets; empty where there are none.
inline std::wstring argumentsOf(ITypeInfo& info, const FUNCDESC& member) {
  const std::vector<std::wstring> names = argumentNames(info, member);
  std::wstring list;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const ELEMDESC& parameter = member.lprgelemdescParam[i];
    const bool isOptional = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
    list += i == 0 ? L"" : L", ";
    list += std::wstring(isOptional ? L"Optional " : L"") + names[i] + L" As " +
            typeName(info, parameter.tdesc) + defaultOf(parameter.paramdesc);
  }
  return list.empty() ? list : L"(" + list + L")";
}

// As a class browser writes it, after the dispatch identifier.
inline std::wstring declaration(ITypeInfo& info, const FUNCDESC& member) {
  const std::wstring name = std::to_wstring(member.memid) + L" ";
  const std::wstring rest = nameOf(info, member.memid);
  const std::wstring result = typeName(info, member.elemdescFunc.tdesc);
  switch (member.invkind) {
    case INVOKE_PROPERTYGET:
      return name + L"Get " + rest + argumentsOf(info, member) + L" As " + result;
    case INVOKE_PROPERTYPUT:
      return name + L"Let " + rest + L" As " + typeName(info, member.lprgelemdescParam[0].tdesc);
    case INVOKE_PROPERTYPUTREF:
      return name + L"Set " + rest + L" As " + typeName(info, member.lprgelemdescParam[0].tdesc);
    default:
      return name + rest + (member.cParams == 0 ? L"()" : argumentsOf(info, member)) +
             (result.empty() ? L"" : L" As " + result);
  }
}

inline std::wstring guidText(REFGUID id) {
  std::wstring text(39, L'\0');
  text.resize(static_cast<std::size_t>(StringFromGUID2(id, text.data(), 39)) - 1);
  return text;
}

// The lines of one type: its kind, name and identifier, and each member below, in their order; the
// accessors of a property in one line.
class TypeReader {
 public:
  explicit TypeReader(ITypeInfo& info) : info_(info), attributes_(attributesOf(info)) {}

  [[nodiscard]] std::vector<std::wstring> lines() {
    lines_ = {kind() + L" " + nameOf(info_, MEMBERID_NIL) + L" " + guidText(attributes_->guid)};
    addConstants();
    addOffered();
    addMembers();
    return std::move(lines_);
  }

 private:
  [[nodiscard]] std::wstring kind() const {
    const WORD flags = attributes_->wTypeFlags;
    if (attributes_->typekind == TKIND_ENUM) return L"enum";
    if (attributes_->typekind == TKIND_COCLASS) {
      return (flags & TYPEFLAG_FCANCREATE) != 0 ? L"creatable class" : L"class";
    }
    return (flags & TYPEFLAG_FDUAL) != 0 ? L"dual interface" : L"dispatch interface";
  }
  void addConstants() {
    for (UINT i = 0; i < attributes_->cVars; ++i) {
      VARDESC* constant = nullptr;
      info_.GetVarDesc(i, &constant);
      add(nameOf(info_, constant->memid) + L" = " + std::to_wstring(V_I4(constant->lpvarValue)));
      info_.ReleaseVarDesc(constant);
    }
  }
  void addOffered() {
    for (UINT i = 0; attributes_->typekind == TKIND_COCLASS && i < attributes_->cImplTypes; ++i) {
      INT flags = 0;
      info_.GetImplTypeFlags(i, &flags);
      HREFTYPE type = 0;
      info_.GetRefTypeOfImplType(i, &type);
      ComPtr<ITypeInfo> offered;
      info_.GetRefTypeInfo(type, offered.put());
      const std::wstring isDefault = (flags & IMPLTYPEFLAG_FDEFAULT) != 0 ? L"default " : L"";
      const std::wstring isSource = (flags & IMPLTYPEFLAG_FSOURCE) != 0 ? L"source " : L"";
      add(isDefault + isSource + nameOf(*offered.get(), MEMBERID_NIL));
    }
  }
  void addMembers() {
    std::wstring last;
    std::size_t verbsEnd = 0;
    for (UINT i = 0; i < attributes_->cFuncs; ++i) {
      const FunctionDescription member = functionAt(info_, i);
      // The seven members of IUnknown and IDispatch come first and are marked.
      if ((member->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0) continue;
      const std::wstring line = L"  " + declaration(info_, *member);
      const std::size_t verb = line.find(L' ', 2) + 1;
      const std::wstring property =
          member->invkind == INVOKE_FUNC ? L"" : line.substr(0, verb) + line.substr(verb + kVerb);
      if (!property.empty() && property == last) {
        lines_.back().insert(verbsEnd, line.substr(verb, kVerb));
        verbsEnd += kVerb;
      } else {
        lines_.push_back(line);
        verbsEnd = verb + kVerb;
      }
      last = property;
    }
  }
  static constexpr std::size_t kVerb = 4;  // "Get ", "Let ", "Set "

  void add(const std::wstring& member) { lines_.push_back(L"  " + member); }

  ITypeInfo& info_;
  TypeAttributes attributes_;
  std::vector<std::wstring> lines_;
};

}  // namespace corvid::testing
