#include "com/host_object.h"

#include "basic/run_time_error.h"
#include "com/bstr.h"
#include "com/com_ptr.h"

#include <dispex.h>

#include <algorithm>
#include <utility>

namespace corvid {
namespace {

constexpr std::int32_t kNoSuchMember = 438;

// Objects of some script engines know their members by this way alone.
bool findScriptMember(IDispatch& object, const wchar_t* name, DISPID& member) {
  ComPtr<IDispatchEx> script;
  const Bstr spelled(name);
  return SUCCEEDED(object.QueryInterface(__uuidof(IDispatchEx), script.putVoid())) &&
         SUCCEEDED(script->GetDispID(spelled.get(), fdexNameCaseInsensitive, &member));
}

std::optional<DISPID> findMember(IDispatch& object, const wchar_t* name) {
  auto* spelled = const_cast<LPOLESTR>(name);  // the system only reads it
  DISPID member = DISPID_UNKNOWN;
  const bool found =
      SUCCEEDED(object.GetIDsOfNames(IID_NULL, &spelled, 1, LOCALE_USER_DEFAULT, &member)) ||
      findScriptMember(object, name, member);
  return found ? std::optional(member) : std::nullopt;
}

Variant invokeMember(IDispatch& object, DISPID member, WORD flags, DISPPARAMS arguments) {
  Variant result;
  const HRESULT outcome = object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments,
                                        result.put(), nullptr, nullptr);
  if (FAILED(outcome)) throw RunTimeError(outcome, {}, L"The host's object failed");
  return result;
}

RunTimeError noSuchMember() {
  return {kNoSuchMember, {}, L"Object doesn't support this property or method"};
}

}  // namespace

std::optional<Variant> findProperty(IDispatch& object, const wchar_t* name) {
  const std::optional<DISPID> member = findMember(object, name);
  if (!member) return std::nullopt;
  return invokeMember(object, *member, DISPATCH_PROPERTYGET, {});
}

Variant propertyOf(IDispatch& object, const wchar_t* name) {
  std::optional<Variant> value = findProperty(object, name);
  if (!value) throw noSuchMember();
  return std::move(*value);
}

void callMethod(IDispatch& object, const wchar_t* name, const std::vector<Variant>& arguments) {
  std::vector<VARIANT> reversed;  // shallow copies: the arguments own what they hold
  reversed.reserve(arguments.size());
  for (const Variant& argument : arguments) reversed.push_back(argument.value());
  std::ranges::reverse(reversed);
  const std::optional<DISPID> member = findMember(object, name);
  if (!member) throw noSuchMember();
  static_cast<void>(
      invokeMember(object, *member, DISPATCH_METHOD,
                   {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0}));
}

}  // namespace corvid
