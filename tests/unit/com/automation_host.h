// A host in the same program: it makes objects through the exported entry points, and calls them
// early or late bound.
#pragma once

#include "com/com_ptr.h"
#include "com/platform.h"
#include "com/variant.h"
#include "corvid_interfaces.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvid::testing {

class AutomationTest : public ::testing::Test {
 protected:
  AutomationTest() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~AutomationTest() override {
    SetErrorInfo(0, nullptr);
    CoUninitialize();
  }
};

inline ComPtr<IClassFactory> factoryOf(REFCLSID id) {
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(S_OK, DllGetClassObject(id, IID_IClassFactory, factory.putVoid()));
  return factory;
}

template <class Interface>
ComPtr<Interface> create(REFCLSID id) {
  ComPtr<Interface> object;
  EXPECT_EQ(S_OK, factoryOf(id)->CreateInstance(nullptr, __uuidof(Interface), object.putVoid()));
  return object;
}

inline ComPtr<IPrinterFiscal> newSession() {
  return create<IPrinterFiscal>(__uuidof(::PrinterFiscal));
}
inline ComPtr<ICStringBuffer> newBuffer() {
  return create<ICStringBuffer>(__uuidof(::CStringBuffer));
}

inline Variant text(const wchar_t* characters) { return Variant(Bstr(characters)); }

inline Variant number(double value) {
  Variant variant;
  V_VT(variant.get()) = VT_R8;
  V_R8(variant.get()) = value;
  return variant;
}

inline Variant boolean(bool value) {
  Variant variant;
  V_VT(variant.get()) = VT_BOOL;
  V_BOOL(variant.get()) = value ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

inline Variant nullValue() {
  Variant variant;
  V_VT(variant.get()) = VT_NULL;
  return variant;
}

inline Variant missing() {
  Variant variant;
  V_VT(variant.get()) = VT_ERROR;
  V_ERROR(variant.get()) = DISP_E_PARAMNOTFOUND;
  return variant;
}

inline Variant objectValue(IDispatch* object) {
  Variant variant;
  V_VT(variant.get()) = VT_DISPATCH;
  V_DISPATCH(variant.get()) = object;
  if (object != nullptr) object->AddRef();
  return variant;
}

// How a script passes a variable of its own.
inline VARIANT variable(Variant& holder) {
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = holder.get();
  return reference;
}

// The text of a Variant that holds one, and a mark where it does not.
inline std::wstring textIn(const Variant& value) {
  return value.type() == VT_BSTR ? std::wstring(viewOf(V_BSTR(&value.value()))) : L"<no text>";
}

struct LateResult {
  HRESULT outcome = S_OK;
  Variant value;
  HRESULT raised = S_OK;  // what the host shows as the error's number
  std::wstring source;
  std::wstring description;
  UINT badArgument = 0;
};

inline DISPID idOf(IDispatch* object, const wchar_t* name) {
  std::wstring spelled = name;
  LPOLESTR names = spelled.data();
  DISPID id = DISPID_UNKNOWN;
  object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

inline LateResult invokeWith(IDispatch* object, DISPID member, WORD flags, DISPPARAMS& arguments) {
  LateResult result;
  EXCEPINFO raised{};
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  result.outcome =
      object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments,
                     isPut ? nullptr : result.value.put(), &raised, &result.badArgument);
  result.raised = raised.scode;
  result.source = viewOf(raised.bstrSource);
  result.description = viewOf(raised.bstrDescription);
  SysFreeString(raised.bstrSource);
  SysFreeString(raised.bstrDescription);
  SysFreeString(raised.bstrHelpFile);
  return result;
}

// Calls a member with arguments in their written order; the values stay the caller's.
inline LateResult callLate(IDispatch* object, const wchar_t* name,
                           std::vector<VARIANT> arguments = {}) {
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  return invokeWith(object, idOf(object, name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters);
}

inline LateResult putLate(IDispatch* object, const wchar_t* name, const VARIANT& value,
                          WORD flags = DISPATCH_PROPERTYPUT) {
  VARIANT argument = value;
  DISPID isPut = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&argument, &isPut, 1, 1};
  return invokeWith(object, idOf(object, name), flags, parameters);
}

}  // namespace corvid::testing
