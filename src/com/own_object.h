// Objects of this library that a host hands back.
#pragma once

#include "basic/run_time_error.h"
#include "com/com_object.h"
#include "com/com_ptr.h"
#include "com/platform.h"

namespace corvid {

// The object behind the host's reference, held; throws type mismatch (13) for Nothing and for an
// object that is not of this class, another library's with the same interface too, and
// RPC_E_WRONG_THREAD for one that belongs to another thread. An object is known by its identity:
// nothing else that a stranger answers is believed.
template <class Object>
class OwnObject {
 public:
  explicit OwnObject(IUnknown* reference) : held_(heldBy(reference)) {
    object_ = dynamic_cast<Object*>(held_);
    if (object_ != nullptr && object_->isOnItsThread()) return;
    const bool isElsewhere = object_ != nullptr;
    if (held_ != nullptr) held_->letGo();
    if (isElsewhere) throw RunTimeError(RPC_E_WRONG_THREAD, {}, L"The object is another thread's");
    throw typeMismatch();
  }
  OwnObject(const OwnObject&) = delete;
  OwnObject& operator=(const OwnObject&) = delete;
  OwnObject(OwnObject&&) = delete;
  OwnObject& operator=(OwnObject&&) = delete;
  ~OwnObject() { held_->letGo(); }

  [[nodiscard]] Object* get() const noexcept { return object_; }
  Object* operator->() const noexcept { return object_; }

 private:
  static ComObject* heldBy(IUnknown* reference) {
    ComPtr<IUnknown> identity;
    if (reference == nullptr || FAILED(reference->QueryInterface(IID_IUnknown, identity.putVoid())))
      return nullptr;
    return ComObject::holdLive(identity.get());
  }

  ComObject* held_;
  Object* object_ = nullptr;
};

}  // namespace corvid
