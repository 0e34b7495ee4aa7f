// A value of the automation world, of any kind.
#pragma once

#include "com/bstr.h"
#include "com/platform.h"

#include <cstddef>
#include <utility>

namespace corvid {

// Owns what the value holds: a text, an array, a reference. Starts as Empty.
class Variant {
 public:
  Variant() noexcept { VariantInit(&value_); }
  explicit Variant(Bstr text) noexcept : Variant() {
    V_VT(&value_) = VT_BSTR;
    V_BSTR(&value_) = text.detach();
  }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  Variant(Variant&& other) noexcept : value_(other.detach()) {}
  Variant& operator=(Variant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { VariantClear(&value_); }

  [[nodiscard]] static Variant ofInt16(SHORT number) noexcept {
    Variant variant;
    V_VT(&variant.value_) = VT_I2;
    V_I2(&variant.value_) = number;
    return variant;
  }
  [[nodiscard]] static Variant ofInt32(LONG number) noexcept {
    Variant variant;
    V_VT(&variant.value_) = VT_I4;
    V_I4(&variant.value_) = number;
    return variant;
  }
  // Takes the array over; type is that of its elements.
  [[nodiscard]] static Variant ofArray(VARTYPE type, SAFEARRAY* array) noexcept {
    Variant variant;
    V_VT(&variant.value_) = static_cast<VARTYPE>(VT_ARRAY | type);
    V_ARRAY(&variant.value_) = array;
    return variant;
  }

  [[nodiscard]] VARTYPE type() const noexcept { return V_VT(&value_); }
  [[nodiscard]] VARIANT* get() noexcept { return &value_; }
  [[nodiscard]] const VARIANT& value() const noexcept { return value_; }
  // Clears what is held and gives the address that a call fills.
  [[nodiscard]] VARIANT* put() noexcept {
    VariantClear(&value_);
    return &value_;
  }
  // Gives the value away and is Empty then.
  [[nodiscard]] VARIANT detach() noexcept {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
  }

 private:
  VARIANT value_;
};

// The bytes of one plain or owning value of a kind that hosts pass, in a variable or an array; 0
// for every other kind, records among them.
[[nodiscard]] std::size_t sizeOfKind(VARTYPE type) noexcept;

// Whether the value can be looked at: a kind that has a size, or an array, or a reference to one
// that leads somewhere.
[[nodiscard]] bool isReadable(const VARIANT& value) noexcept;

// The value at the end of a chain of references to Variants; null for a chain that is longer than
// 16, as a ring is, or that ends nowhere or in a kind that no host passes.
[[nodiscard]] const VARIANT* innermost(const VARIANT& value) noexcept;

// A copy of what the value holds or refers to; DISP_E_TYPEMISMATCH where there is nothing to copy.
[[nodiscard]] HRESULT copyWithoutReference(const VARIANT& value, Variant& copy) noexcept;

// The value as one of another kind; texts by the locale, Booleans as "True" and "False".
[[nodiscard]] HRESULT changeType(const VARIANT& value, VARTYPE type, Variant& changed,
                                 LCID locale = LOCALE_USER_DEFAULT) noexcept;

}  // namespace corvid
