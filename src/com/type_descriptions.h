// What type information tells about its members.
#pragma once

#include "com/com_ptr.h"
#include "com/platform.h"

#include <functional>
#include <memory>

namespace corvid {

// Given back to the type information or library that it came from, which must outlive it; may be
// empty.
using FunctionDescription = std::unique_ptr<FUNCDESC, std::function<void(FUNCDESC*)>>;
using LibraryAttributes = std::unique_ptr<TLIBATTR, std::function<void(TLIBATTR*)>>;
using TypeAttributes = std::unique_ptr<TYPEATTR, std::function<void(TYPEATTR*)>>;

[[nodiscard]] FunctionDescription functionAt(ITypeInfo& info, UINT index);
[[nodiscard]] TypeAttributes attributesOf(ITypeInfo& info);
[[nodiscard]] LibraryAttributes attributesOf(ITypeLib& library);

// The member of that number that is called in one of the ways of `flags` (DISPATCH_METHOD and its
// like); empty when there is none.
[[nodiscard]] FunctionDescription findFunction(ITypeInfo& info, DISPID member, WORD flags);

// The type that this one extends; empty for one that extends none.
[[nodiscard]] ComPtr<ITypeInfo> extendedType(ITypeInfo& info);

// The identifier of an interface that a parameter names; that of IDispatch where it is unknown.
[[nodiscard]] IID interfaceOf(ITypeInfo& info, HREFTYPE type);

}  // namespace corvid
