// The type library as a class browser reads it.
#pragma once

#include "registration/bstr.h"
#include "registration/type_descriptions.h"
#include "registration/type_library.h"
#include "unit/registration/automation_host.h"

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
      {VT_I2, L"Integer"},   {VT_I4, L"Long"},         {VT_R8, L"Double"},
      {VT_CY, L"Currency"},  {VT_DATE, L"Date"},       {VT_BSTR, L"String"},
      {VT_BOOL, L"Boolean"}, {VT_VARIANT, L"Variant"}, {VT_VOID, L""}};
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

// As a class browser writes it, behind the dispatch identifier.
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

class PublishedInterface : public AutomationTest {
 protected:
  PublishedInterface() { EXPECT_EQ(S_OK, openTypeLibrary(TypeLibraryUse::Load, library_)); }

  ComPtr<ITypeInfo> typeAt(UINT index) {
    ComPtr<ITypeInfo> info;
    library_->GetTypeInfo(index, info.put());
    return info;
  }
  ComPtr<ITypeInfo> typeNamed(const std::wstring& name) {
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
      ComPtr<ITypeInfo> info = typeAt(i);
      if (nameOf(*info.get(), MEMBERID_NIL) == name) return info;
    }
    ADD_FAILURE() << "no such type";
    return {};
  }
  std::vector<std::wstring> membersOf(const std::wstring& name) {
    const ComPtr<ITypeInfo> info = typeNamed(name);
    const TypeAttributes attributes = attributesOf(*info.get());
    std::vector<std::wstring> members;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
      const FunctionDescription member = functionAt(*info.get(), i);
      // The seven members of IUnknown and IDispatch come first and are marked.
      if ((member->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0) continue;
      members.push_back(declaration(*info.get(), *member));
    }
    return members;
  }

  std::vector<std::wstring> constantsOf(UINT index) {
    const ComPtr<ITypeInfo> info = typeAt(index);
    const TypeAttributes attributes = attributesOf(*info.get());
    std::vector<std::wstring> constants = {nameOf(*info.get(), MEMBERID_NIL)};
    for (UINT i = 0; i < attributes->cVars; ++i) {
      VARDESC* constant = nullptr;
      info->GetVarDesc(i, &constant);
      constants.push_back(nameOf(*info.get(), constant->memid) + L"=" +
                          std::to_wstring(V_I4(constant->lpvarValue)));
      info->ReleaseVarDesc(constant);
    }
    return constants;
  }

  ComPtr<ITypeLib> library_;
};

}  // namespace corvid::testing
