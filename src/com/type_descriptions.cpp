#include "com/type_descriptions.h"

namespace corvid {

FunctionDescription functionAt(ITypeInfo& info, UINT index) {
  FUNCDESC* description = nullptr;
  if (FAILED(info.GetFuncDesc(index, &description))) description = nullptr;
  return {description, [&info](FUNCDESC* one) { info.ReleaseFuncDesc(one); }};
}

TypeAttributes attributesOf(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetTypeAttr(&attributes))) attributes = nullptr;
  return {attributes, [&info](TYPEATTR* one) { info.ReleaseTypeAttr(one); }};
}

LibraryAttributes attributesOf(ITypeLib& library) {
  TLIBATTR* attributes = nullptr;
  if (FAILED(library.GetLibAttr(&attributes))) attributes = nullptr;
  return {attributes, [&library](TLIBATTR* one) { library.ReleaseTLibAttr(one); }};
}

FunctionDescription findFunction(ITypeInfo& info, DISPID member, WORD flags) {
  const TypeAttributes attributes = attributesOf(info);
  if (!attributes) return {};
  for (UINT index = 0; index < attributes->cFuncs; ++index) {
    FunctionDescription one = functionAt(info, index);
    if (one && one->memid == member && (one->invkind & flags) != 0) return one;
  }
  return {};
}

ComPtr<ITypeInfo> extendedType(ITypeInfo& info) {
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> extended;
  if (FAILED(info.GetRefTypeOfImplType(0, &reference)) ||
      FAILED(info.GetRefTypeInfo(reference, extended.put()))) {
    return {};
  }
  return extended;
}

IID interfaceOf(ITypeInfo& info, HREFTYPE type) {
  ComPtr<ITypeInfo> named;
  if (FAILED(info.GetRefTypeInfo(type, named.put()))) return IID_IDispatch;
  const TypeAttributes attributes = attributesOf(*named.get());
  return attributes ? attributes->guid : IID_IDispatch;
}

}  // namespace corvid
