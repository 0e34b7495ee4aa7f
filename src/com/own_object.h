// Objects of this library, recognised behind a host's reference.
#pragma once

#include "basic/run_time_error.h"
#include "com/com_ptr.h"
#include "com/platform.h"

namespace corvid {

// Known to this module alone: whoever answers to it is one of its automation objects, and the
// answer is the object's identity.
inline constexpr GUID kOwnObject = {
    0x0d28556a, 0x12e4, 0x4d11, {0xb8, 0x62, 0x6a, 0xda, 0x8c, 0x5b, 0xe7, 0xcc}};

// The object behind the reference; raises type mismatch (13) for Nothing and for an object that is
// not of this class, another library's with the same interface too.
template <class Object>
[[nodiscard]] ComPtr<Object> requireOwn(IUnknown* reference) {
  ComPtr<IUnknown> identity;
  const bool isOwn =
      reference != nullptr && SUCCEEDED(reference->QueryInterface(kOwnObject, identity.putVoid()));
  ComPtr<Object> own(isOwn ? dynamic_cast<Object*>(identity.get()) : nullptr);
  if (!own) throw typeMismatch();
  return own;
}

}  // namespace corvid
