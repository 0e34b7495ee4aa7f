// RAII wrapper for what the system hands out, parameterised by traits.
#pragma once

#include <utility>

namespace corvid {

// Traits give Type, none(), and release(Type).
template <class Traits>
class Owned {
 public:
  using Type = typename Traits::Type;

  Owned() = default;
  explicit Owned(Type value) noexcept : value_(value) {}
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  Owned(Owned&& other) noexcept : value_(std::exchange(other.value_, Traits::none())) {}
  Owned& operator=(Owned&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Owned() {
    if (*this) Traits::release(value_);
  }

  [[nodiscard]] Type get() const noexcept { return value_; }
  // For calls that fill in a place; only while nothing is owned.
  [[nodiscard]] Type* put() noexcept { return &value_; }
  explicit operator bool() const noexcept { return value_ != Traits::none(); }

 private:
  Type value_ = Traits::none();
};

}  // namespace corvid
