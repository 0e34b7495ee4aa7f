// Arrays of the automation world.
#pragma once

#include "registration/platform.h"
#include "registration/variant.h"

#include <cstddef>
#include <limits>
#include <new>
#include <utility>

namespace corvid {

// Owns one zero-based array of one dimension; the upper bound of an empty one is -1.
class SafeArray {
 public:
  // Throws std::bad_alloc, also where the length does not fit the system's count.
  SafeArray(VARTYPE type, std::size_t length) : type_(type) {
    if (length > static_cast<std::size_t>(std::numeric_limits<LONG>::max())) throw std::bad_alloc();
    array_ = SafeArrayCreateVector(type, 0, static_cast<ULONG>(length));
    if (array_ == nullptr) throw std::bad_alloc();
  }
  SafeArray(const SafeArray&) = delete;
  SafeArray& operator=(const SafeArray&) = delete;
  SafeArray(SafeArray&&) = delete;
  SafeArray& operator=(SafeArray&&) = delete;
  ~SafeArray() { SafeArrayDestroy(array_); }

  // Moves a value into an element of an array of VT_VARIANT; the index lies inside the array.
  void set(std::size_t index, Variant value) noexcept {
    VARIANT& element = static_cast<VARIANT*>(array_->pvData)[index];
    VariantClear(&element);
    element = value.detach();
  }
  // Moves a text into an element of an array of VT_BSTR; the index lies inside the array.
  void set(std::size_t index, Bstr text) noexcept {
    BSTR& element = static_cast<BSTR*>(array_->pvData)[index];
    SysFreeString(std::exchange(element, text.detach()));
  }
  // The array as a value of its own.
  [[nodiscard]] Variant toVariant() && noexcept {
    return Variant::ofArray(type_, std::exchange(array_, nullptr));
  }

 private:
  VARTYPE type_;
  SAFEARRAY* array_ = nullptr;
};

}  // namespace corvid
