// A host in the same program: it makes objects through the exported entry points, and calls them
// early or late bound.
#pragma once

#include "com/com_ptr.h"
#include "com/platform.h"
#include "com/type_descriptions.h"
#include "com/variant.h"
#include "corvid_interfaces.h"

#include <dispex.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <utility>
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

// A value as its host made it; what it refers to stays the caller's.
template <class Value>
VARIANT raw(int type, Value value) {
  static_assert(sizeof(Value) <= sizeof(void*) * 2);
  VARIANT variant{};
  V_VT(&variant) = static_cast<VARTYPE>(type);
  std::memcpy(&V_UI1(&variant), &value, sizeof value);
  return variant;
}

template <class Number>
Variant holding(VARTYPE type, Number value) {
  Variant variant;
  *variant.get() = raw(type, value);
  return variant;
}

inline Variant number(double value) { return holding(VT_R8, value); }
inline Variant boolean(bool value) {
  return holding(VT_BOOL, value ? VARIANT_TRUE : VARIANT_FALSE);
}
inline Variant nullValue() { return holding(VT_NULL, 0); }
inline Variant missing() { return holding(VT_ERROR, DISP_E_PARAMNOTFOUND); }

inline Variant objectValue(IDispatch* object) {
  Variant variant;
  V_VT(variant.get()) = VT_DISPATCH;
  V_DISPATCH(variant.get()) = object;
  if (object != nullptr) object->AddRef();
  return variant;
}

// How a script passes a variable of its own.
inline VARIANT variable(Variant& holder) { return raw(VT_BYREF | VT_VARIANT, holder.get()); }

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

inline std::wstring nameOf(ITypeInfo& info, MEMBERID member) {
  Bstr name;
  info.GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
  return std::wstring(name.view());
}

// The members of an object's type, but for those that class browsers hide; `call` gets each.
template <class Call>
void forEachMember(IDispatch* object, Call&& call) {
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(S_OK, object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()));
  const UINT count = attributesOf(*info.get())->cFuncs;
  for (UINT i = 0; i < count; ++i) {
    const FunctionDescription one = functionAt(*info.get(), i);
    if ((one->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) call(*one, nameOf(*info.get(), one->memid));
  }
}

inline LateResult putLate(IDispatch* object, const wchar_t* name, const VARIANT& value,
                          WORD flags = DISPATCH_PROPERTYPUT) {
  VARIANT argument = value;
  DISPID isPut = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&argument, &isPut, 1, 1};
  return invokeWith(object, idOf(object, name), flags, parameters);
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// An object of the host's with one member. Lives on the stack; counts references.
class HostObject : public IDispatch {
 public:
  using Member = std::function<HRESULT(DISPPARAMS& arguments, VARIANT* result)>;
  HostObject(const wchar_t* name, Member member, DISPID id = 1)
      : name_(name), member_(std::move(member)), id_(id) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch && !isEverything) return E_NOINTERFACE;
    if (id == __uuidof(IDispatchEx)) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    *ids = id_;
    return count == 1 && name_ == *names ? S_OK : DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result,
                      EXCEPINFO*, UINT*) override {
    return id == id_ ? member_(*arguments, result) : DISP_E_MEMBERNOTFOUND;
  }

  ULONG references = 1;
  bool isEverything = false;  // answers for interfaces that it does not have

 private:
  std::wstring name_;
  Member member_;
  DISPID id_;
};

#pragma GCC diagnostic pop

}  // namespace corvid::testing
