// The base of every automation object: dispatch, error information, class information.
#pragma once

#include "com/com_ptr.h"
#include "com/guard.h"
#include "com/host_arguments.h"
#include "com/host_values.h"
#include "com/late_call.h"
#include "com/object_of.h"
#include "com/platform.h"
#include "com/type_library.h"

#include <utility>

namespace corvid {

// Automation interfaces have no virtual destructor: their objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Implements all of a dual interface but its own members. Interface (which may extend another dual
// one) and Class come from the type library; Others are further interfaces of the object. On
// another thread than the object's own every member returns RPC_E_WRONG_THREAD and does nothing.
template <class Interface, class Class, class... Others>
class DispatchObject
    : public ObjectOf<Interface, ISupportErrorInfo, IProvideClassInfo2, Others...> {
 public:
  using Published = Interface;

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    const HRESULT result = loadTypeInfo();
    if (SUCCEEDED(result)) *info = ComPtr(typeInfo_).detach();
    return result;
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr) return E_POINTER;
    const HRESULT result = loadTypeInfo();
    return FAILED(result) ? result : typeInfo_->GetIDsOfNames(names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                      // NOLINTNEXTLINE(readability-non-const-parameter): fixed by IDispatch
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (arguments == nullptr) return E_POINTER;
    const HRESULT loaded = loadTypeInfo();
    if (FAILED(loaded)) return loaded;
    HRESULT outcome = S_OK;
    const LateCall call{member, flags, arguments, result, exception, badArgument};
    const HRESULT prepared = this->call(
        [&] { outcome = invoke(*typeInfo_.get(), static_cast<Interface*>(this), call); });
    return FAILED(prepared) ? prepared : outcome;
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
    return isOrExtends<Interface>(id) && id != IID_IDispatch ? S_OK : S_FALSE;
  }

  STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    ComPtr<ITypeInfo> description;
    const HRESULT result = findTypeInfo(__uuidof(Class), description);
    if (SUCCEEDED(result)) *info = description.detach();
    return result;
  }
  // As of a class that is the source of no events.
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override {
    if (id == nullptr) return E_POINTER;
    *id = GUID_NULL;
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? E_FAIL : E_INVALIDARG;
  }

 protected:
  // Runs a member's body at the boundary. The object outlives the call, even if the host releases
  // its last reference while the body lets it run.
  template <class Body>
  HRESULT call(Body&& body) noexcept {
    if (!this->isOnItsThread()) return RPC_E_WRONG_THREAD;
    ComObject::deleteOrphans();
    const Held<ComObject> held(*this);
    return guarded(__uuidof(Interface), std::forward<Body>(body));
  }
  // Hands the host what `compute` gives, converted to the place's type. On failure the place is
  // cleared.
  template <class Out, class Compute>
  HRESULT giveResult(Out* place, Compute&& compute) noexcept {
    return call([&] {
      requirePlace(place);
      *place = Out{};
      giveToHost(*place, compute());
    });
  }
  template <class Out, class Value>
  HRESULT give(Out* place, const Value& value) noexcept {
    return giveResult(place, [&value]() -> const Value& { return value; });
  }
  template <class In, class Value>
  HRESULT take(In given, Value& field) noexcept {
    return call([&] { fromHost(given, field); });
  }

  // Calls a function of the core, or a member of what it works on, with the host's values in the
  // function's own types: they are converted in their order before the function begins. `answer`
  // hands out what it returns.
  template <class Out, class Function, class Subject, class... Given>
  HRESULT answer(Out* place, Function function, Subject& subject, const Given&... given) noexcept {
    return giveResult(place, [&] { return callWith(function, subject, given...); });
  }
  template <class Function, class Subject, class... Given>
  HRESULT run(Function function, Subject& subject, const Given&... given) noexcept {
    return call([&] { callWith(function, subject, given...); });
  }

 private:
  HRESULT loadTypeInfo() noexcept {
    if (!this->isOnItsThread()) return RPC_E_WRONG_THREAD;
    return typeInfo_ ? S_OK : findTypeInfo(__uuidof(Interface), typeInfo_);
  }

  ComPtr<ITypeInfo> typeInfo_;  // loaded by the first late-bound call
};

#pragma GCC diagnostic pop

// A read-write property of the interface that stands for a field of that name.
// NOLINTBEGIN(bugprone-macro-parentheses): a type and a member's owner take none
#define CORVID_PROPERTY(holder, Type, name)                                      \
  STDMETHODIMP get_##name(Type* ret) override { return give(ret, holder.name); } \
  STDMETHODIMP put_##name(Type rhs) override { return take(rhs, holder.name); }
// NOLINTEND(bugprone-macro-parentheses)

// A new object, with its one reference in the pointer.
template <class Object, class... Arguments>
[[nodiscard]] ComPtr<Object> makeObject(Arguments&&... arguments) {
  ComObject::deleteOrphans();
  return ComPtr<Object>::adopt(new Object(std::forward<Arguments>(arguments)...));
}

}  // namespace corvid
