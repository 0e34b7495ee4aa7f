// RAII wrapper for what the system hands out, parameterised by traits.
#pragma once

#include <atomic>
#include <utility>

namespace corvid {

// Traits give Type, none(), and release(Type).
template <class Traits>
class Owned {
 public:
  using Type = typename Traits::Type;

  Owned() noexcept : Owned(Traits::none()) {}
  explicit Owned(Type value) noexcept : value_(value) { ++living_; }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  Owned(Owned&& other) noexcept : Owned(std::exchange(other.value_, Traits::none())) {}
  Owned& operator=(Owned&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Owned() {
    --living_;
    if (*this) Traits::release(value_);
  }

  [[nodiscard]] Type get() const noexcept { return value_; }
  // For calls that fill in a place; only while nothing is owned.
  [[nodiscard]] Type* put() noexcept { return &value_; }
  explicit operator bool() const noexcept { return value_ != Traits::none(); }

  // How many owners of this kind there are, for whoever looks for one that was forgotten. Any
  // thread.
  [[nodiscard]] static long living() noexcept { return living_; }

 private:
  static inline std::atomic<long> living_ = 0;

  Type value_;
};

}  // namespace corvid
