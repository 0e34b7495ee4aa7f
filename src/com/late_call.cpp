#include "com/late_call.h"

#include "com/com_ptr.h"
#include "com/late_arguments.h"
#include "com/type_descriptions.h"

namespace corvid {
namespace {

HRESULT pass(ITypeInfo& info, void* object, const LateCall& call, DISPPARAMS* arguments) {
  return info.Invoke(object, call.member, call.flags, arguments, call.result, call.exception,
                     call.badArgument);
}

}  // namespace

HRESULT invoke(ITypeInfo& info, void* object, const LateCall& call) {
  if (!LateArguments::areWellFormed(*call.arguments)) return E_INVALIDARG;
  if (call.arguments->cArgs == 0) return pass(info, object, call, call.arguments);
  // A type may leave its inherited members to the type that it extends.
  ComPtr<ITypeInfo> owner(&info);
  FunctionDescription member = findFunction(info, call.member, call.flags);
  while (!member && owner) {
    owner = extendedType(*owner.get());
    if (owner) member = findFunction(*owner.get(), call.member, call.flags);
  }
  if (!member) return pass(info, object, call, call.arguments);

  LateArguments arguments(*owner.get(), *call.arguments);
  HRESULT result = arguments.fit(*member, call.badArgument);
  if (SUCCEEDED(result)) result = pass(info, object, call, arguments.get());
  return SUCCEEDED(result) ? arguments.writeBack() : result;
}

}  // namespace corvid
