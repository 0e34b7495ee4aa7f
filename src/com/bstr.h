// A text of the automation world.
#pragma once

#include "com/platform.h"

#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace corvid {

// The characters of a host's text, NULs inside it included; a null one is empty.
[[nodiscard]] inline std::wstring_view viewOf(const OLECHAR* text) noexcept {
  return text != nullptr ? std::wstring_view(text, SysStringLen(const_cast<BSTR>(text)))
                         : std::wstring_view();
}

// Owns one automation text.
class Bstr {
 public:
  Bstr() = default;
  // Throws std::bad_alloc.
  explicit Bstr(std::wstring_view text) {
    if (text.size() > std::numeric_limits<UINT>::max() / sizeof(OLECHAR)) throw std::bad_alloc();
    text_ = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (text_ == nullptr) throw std::bad_alloc();
  }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~Bstr() { SysFreeString(text_); }

  [[nodiscard]] BSTR get() const noexcept { return text_; }
  [[nodiscard]] std::wstring_view view() const noexcept { return viewOf(text_); }
  // Gives the text away.
  [[nodiscard]] BSTR detach() noexcept { return std::exchange(text_, nullptr); }
  // Frees what is held and gives the address that a call fills.
  [[nodiscard]] BSTR* put() noexcept {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }

 private:
  BSTR text_ = nullptr;
};

}  // namespace corvid
