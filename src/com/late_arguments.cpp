#include "com/late_arguments.h"

#include "com/by_ref.h"
#include "com/com_ptr.h"
#include "com/type_descriptions.h"

namespace corvid {
namespace {

bool isMissingArgument(const VARIANT& value) {
  return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

}  // namespace

LateArguments::LateArguments(ITypeInfo& info, const DISPPARAMS& given)
    : info_(info),
      given_(given),
      arguments_(given),
      values_(given.rgvarg, given.rgvarg + given.cArgs) {
  arguments_.rgvarg = values_.data();
  standIns_.reserve(given.cArgs);
}

bool LateArguments::areWellFormed(const DISPPARAMS& given) noexcept {
  return (given.cArgs == 0 || given.rgvarg != nullptr) && given.cNamedArgs <= given.cArgs &&
         (given.cNamedArgs == 0 || given.rgdispidNamedArgs != nullptr);
}

HRESULT LateArguments::fit(const FUNCDESC& member, UINT* badArgument) {
  const UINT parameters = static_cast<UINT>(member.cParams);
  for (UINT place = 0; place < given_.cArgs; ++place) {
    const UINT parameter = parameterOf(place, member);
    if (parameter >= parameters || isMissingArgument(values_[place])) continue;
    const HRESULT result = fitOne(place, member.lprgelemdescParam[parameter].tdesc);
    if (FAILED(result)) {
      if (badArgument != nullptr) *badArgument = place;
      return result;
    }
  }
  return S_OK;
}

// Arguments stand last first; the named ones, which carry the number of their parameter, lead.
UINT LateArguments::parameterOf(UINT place, const FUNCDESC& member) const {
  if (place >= given_.cNamedArgs) return given_.cArgs - 1 - place;
  const DISPID name = given_.rgdispidNamedArgs[place];
  return name == DISPID_PROPERTYPUT ? static_cast<UINT>(member.cParams) - 1
                                    : static_cast<UINT>(name);
}

HRESULT LateArguments::fitOne(UINT place, const TYPEDESC& type) {
  if (type.vt == VT_VARIANT) return S_OK;
  if (type.vt == VT_DISPATCH) return passObject(place);
  if (type.vt == VT_USERDEFINED) return passValue(place, VT_I4);  // an enumeration
  if (type.vt != VT_PTR) return passValue(place, type.vt);
  // A reference to an interface is an object, not a place to write to.
  if (type.lptdesc->vt == VT_USERDEFINED) return checkObject(place, type.lptdesc->hreftype);
  return passReference(place, type.lptdesc->vt);
}

// The system would tell the host that the class supports no automation.
HRESULT LateArguments::checkObject(UINT place, HREFTYPE interfaceType) const {
  Variant object;
  const HRESULT result = copyWithoutReference(values_[place], object);
  if (FAILED(result)) return result;
  if (object.type() != VT_DISPATCH && object.type() != VT_UNKNOWN) return DISP_E_TYPEMISMATCH;
  const ComPtr<IUnknown> reference(V_UNKNOWN(object.get()));
  ComPtr<IUnknown> wanted;
  const bool fits = !reference || SUCCEEDED(reference->QueryInterface(
                                      interfaceOf(info_, interfaceType), wanted.putVoid()));
  return fits ? S_OK : DISP_E_TYPEMISMATCH;
}

// Null is Nothing: some script languages have no other word for it.
HRESULT LateArguments::passObject(UINT place) {
  Variant object;
  const HRESULT result = copyWithoutReference(values_[place], object);
  if (FAILED(result) || object.type() != VT_NULL) return result;
  V_VT(&values_[place]) = VT_DISPATCH;
  V_DISPATCH(&values_[place]) = nullptr;
  return S_OK;
}

HRESULT LateArguments::passReference(UINT place, VARTYPE type) {
  if (V_VT(&values_[place]) == (VT_BYREF | type)) return S_OK;
  if (type == VT_VARIANT && (V_VT(&values_[place]) & VT_BYREF) != 0) return passTyped(place);
  StandIn& standIn = standIns_.emplace_back(StandIn{place, true, {}, {}});
  HRESULT result = convertFromHost(values_[place], type, standIn.value);
  if (SUCCEEDED(result)) result = VariantCopy(standIn.before.put(), standIn.value.get());
  if (SUCCEEDED(result)) values_[place] = referenceTo(standIn.value, type);
  return result;
}

// A Variant may hold a reference itself: nothing is copied, an array neither, and there is nothing
// to write back.
HRESULT LateArguments::passTyped(UINT place) {
  StandIn& standIn = standIns_.emplace_back(StandIn{place, false, {}, {}});
  *standIn.value.get() = values_[place];
  values_[place] = referenceTo(standIn.value, VT_VARIANT);
  return S_OK;
}

HRESULT LateArguments::passValue(UINT place, VARTYPE type) {
  if (V_VT(&values_[place]) == type) return S_OK;
  StandIn& standIn = standIns_.emplace_back(StandIn{place, false, {}, {}});
  const HRESULT result = convertFromHost(values_[place], type, standIn.value);
  if (SUCCEEDED(result)) values_[place] = standIn.value.value();
  return result;
}

HRESULT LateArguments::writeBack() {
  for (StandIn& standIn : standIns_) {
    if (!standIn.isReference || holdSame(standIn.before.value(), standIn.value.value())) continue;
    const HRESULT result = assignToHost(given_.rgvarg[standIn.place], standIn.value);
    if (FAILED(result)) return result;
  }
  return S_OK;
}

}  // namespace corvid
