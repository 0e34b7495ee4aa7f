// A counted reference to an automation object.
#pragma once

#include "com/platform.h"

#include <utility>

namespace corvid {

// Owns one reference, or none. Copying counts, destroying releases; nothing here throws.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  // Adds a reference of its own.
  explicit ComPtr(Interface* object) noexcept : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_ != nullptr) object_->Release();
  }

  // Takes over a reference that somebody else counted.
  [[nodiscard]] static ComPtr adopt(Interface* object) noexcept {
    ComPtr pointer;
    pointer.object_ = object;
    return pointer;
  }

  [[nodiscard]] Interface* get() const noexcept { return object_; }
  Interface* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  // Gives the reference away.
  [[nodiscard]] Interface* detach() noexcept { return std::exchange(object_, nullptr); }
  // Releases what is held and gives the address that a call fills with a counted reference.
  [[nodiscard]] Interface** put() noexcept {
    ComPtr().swap(*this);
    return &object_;
  }
  [[nodiscard]] void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }

  // Empty when the object has no such interface.
  template <class Other>
  [[nodiscard]] ComPtr<Other> as() const noexcept {
    ComPtr<Other> other;
    if (object_ != nullptr && FAILED(object_->QueryInterface(__uuidof(Other), other.putVoid())))
      return {};
    return other;
  }

  void swap(ComPtr& other) noexcept { std::swap(object_, other.object_); }

 private:
  Interface* object_ = nullptr;
};

}  // namespace corvid
