// The base of every automation object: lifetime, dispatch, error information, class information.
#pragma once

#include "basic/run_time_error.h"
#include "com/com_ptr.h"
#include "com/guard.h"
#include "com/host_values.h"
#include "com/late_call.h"
#include "com/module.h"
#include "com/own_object.h"
#include "com/platform.h"
#include "com/type_library.h"

#include <atomic>
#include <utility>

namespace corvid {

// Raises E_POINTER for a place that the host did not give.
inline void requirePlace(const void* place) {
  if (place == nullptr) throw RunTimeError(E_POINTER, {}, L"Invalid pointer");
}

// What the host's reference refers to; raises E_POINTER for none.
template <class Value>
[[nodiscard]] Value& behind(Value* place) {
  requirePlace(place);
  return *place;
}

// Automation interfaces have no virtual destructor: their objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Implements all of a dual interface but its own members. Interface and Class come from the type
// library; Others are further interfaces of the object. A new object has one reference, its
// creator's. While it lives the module stays loaded.
template <class Interface, class Class, class... Others>
class DispatchObject : public Interface,
                       public ISupportErrorInfo,
                       public IProvideClassInfo2,
                       public Others... {
 public:
  using Published = Interface;

  DispatchObject() = default;
  DispatchObject(const DispatchObject&) = delete;
  DispatchObject& operator=(const DispatchObject&) = delete;
  DispatchObject(DispatchObject&&) = delete;
  DispatchObject& operator=(DispatchObject&&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    IUnknown* found = findInterface(id);
    *object = found;
    if (found == nullptr) return E_NOINTERFACE;
    found->AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      if (calls_ == 0) {
        delete this;
      } else {
        lastReferenceReleased();
      }
    }
    return left;
  }

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
    return id == __uuidof(Interface) ? S_OK : S_FALSE;
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
  virtual ~DispatchObject() = default;

  // Runs a member's body at the boundary. The object outlives the call, even if the host releases
  // its last reference while the body lets it run.
  template <class Body>
  HRESULT call(Body&& body) noexcept {
    ++calls_;
    const HRESULT result = guarded(__uuidof(Interface), std::forward<Body>(body));
    if (--calls_ == 0 && references_ == 0) delete this;
    return result;
  }
  // The host has let go of the object in the middle of a call; it is deleted at the call's end.
  virtual void lastReferenceReleased() noexcept {}
  // Hands the host what `compute` gives, converted to the interface's type. On failure the place
  // is cleared.
  template <class Out, class Compute>
  HRESULT giveResult(Out* place, Compute&& compute) noexcept {
    return call([&] {
      requirePlace(place);
      *place = Out{};
      *place = static_cast<Out>(toHost(compute()));
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

 private:
  IUnknown* identity() noexcept { return static_cast<Interface*>(this); }

  IUnknown* findInterface(REFIID id) noexcept {
    if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(Interface)) return identity();
    if (id == kOwnObject) return identity();
    if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2) {
      return static_cast<IProvideClassInfo2*>(this);
    }
    IUnknown* found = nullptr;
    static_cast<void>((... || (id == __uuidof(Others) && (found = static_cast<Others*>(this)))));
    return found;
  }

  HRESULT loadTypeInfo() noexcept {
    return typeInfo_ ? S_OK : findTypeInfo(__uuidof(Interface), typeInfo_);
  }

  ModuleReference module_;
  std::atomic<ULONG> references_{1};
  std::atomic<ULONG> calls_{0};  // under way
  ComPtr<ITypeInfo> typeInfo_;   // loaded by the first late-bound call
};

#pragma GCC diagnostic pop

// A new object, with its one reference in the pointer.
template <class Object, class... Arguments>
[[nodiscard]] ComPtr<Object> makeObject(Arguments&&... arguments) {
  return ComPtr<Object>::adopt(new Object(std::forward<Arguments>(arguments)...));
}

}  // namespace corvid
