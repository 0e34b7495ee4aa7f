// Arrays of the automation world.
#pragma once

#include "com/platform.h"
#include "com/variant.h"

#include <cstddef>
#include <limits>
#include <new>
#include <utility>

namespace corvid {

// Owns one zero-based array of Variants, the one kind whose elements every script language reads.
// The upper bound of an empty one is -1.
class SafeArray {
 public:
  // All elements are Empty. Throws std::bad_alloc, also where the length does not fit the system's
  // count.
  explicit SafeArray(std::size_t length) {
    if (length > static_cast<std::size_t>(std::numeric_limits<LONG>::max())) throw std::bad_alloc();
    array_ = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(length));
    if (array_ == nullptr) throw std::bad_alloc();
  }
  SafeArray(const SafeArray&) = delete;
  SafeArray& operator=(const SafeArray&) = delete;
  SafeArray(SafeArray&&) = delete;
  SafeArray& operator=(SafeArray&&) = delete;
  ~SafeArray() { SafeArrayDestroy(array_); }

  // Moves a value into an element; the index lies inside the array.
  void set(std::size_t index, Variant value) noexcept {
    VARIANT& element = static_cast<VARIANT*>(array_->pvData)[index];
    VariantClear(&element);
    element = value.detach();
  }
  // The array as a value of its own.
  [[nodiscard]] Variant toVariant() && noexcept {
    return Variant::ofArray(VT_VARIANT, std::exchange(array_, nullptr));
  }

 private:
  SAFEARRAY* array_ = nullptr;
};

}  // namespace corvid
