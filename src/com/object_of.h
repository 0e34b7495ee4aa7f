// The base of an object with any interfaces of the system's or the library's.
#pragma once

#include "com/com_object.h"
#include "com/platform.h"

#include <type_traits>

namespace corvid {

// The interface that another one extends, where that is neither IUnknown nor IDispatch.
template <class Interface>
struct Extended {
  using Type = std::conditional_t<std::is_base_of_v<IDispatch, Interface>, IDispatch, IUnknown>;
};
template <>
struct Extended<IDispatch> {
  using Type = IUnknown;
};
template <>
struct Extended<IProvideClassInfo2> {
  using Type = IProvideClassInfo;
};

// Whether the identifier names the interface or one that it extends, but for IUnknown.
template <class Interface>
[[nodiscard]] bool isOrExtends(REFIID id) noexcept {
  if constexpr (std::is_same_v<Interface, IUnknown>) {
    return false;
  } else {
    return id == __uuidof(Interface) || isOrExtends<typename Extended<Interface>::Type>(id);
  }
}

// Automation interfaces have no virtual destructor: their objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Implements IUnknown for all interfaces of an object; the first one is its identity.
template <class First, class... Others>
class ObjectOf : public ComObject, public First, public Others... {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    IUnknown* const found = find(id);
    *object = found;
    if (found == nullptr) return E_NOINTERFACE;
    addReference();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return addReference(); }
  STDMETHODIMP_(ULONG) Release() override { return releaseReference(); }

 protected:
  ObjectOf() : ComObject(static_cast<First*>(this)) {}
  ~ObjectOf() override = default;

 private:
  IUnknown* find(REFIID id) noexcept {
    if (id == IID_IUnknown || isOrExtends<First>(id)) return static_cast<First*>(this);
    IUnknown* found = nullptr;
    static_cast<void>(
        (... || (isOrExtends<Others>(id) && (found = static_cast<Others*>(this)) != nullptr)));
    return found;
  }
};

#pragma GCC diagnostic pop

}  // namespace corvid
