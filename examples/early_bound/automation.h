// What a C++ host needs around automation calls: owners, and failures as exceptions.
#pragma once

// clang-format off
#include <windows.h>
#include <oleauto.h>
// clang-format on

#include <stdexcept>
#include <string>
#include <utility>

namespace host {

// The automation libraries of this thread, as a single-threaded apartment.
class Apartment {
 public:
  Apartment() {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
      throw std::runtime_error("no automation on this thread");
    }
  }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  Apartment(Apartment&&) = delete;
  Apartment& operator=(Apartment&&) = delete;
  ~Apartment() { CoUninitialize(); }
};

// Owns one text.
class Text {
 public:
  Text() = default;
  explicit Text(const wchar_t* text) : text_(SysAllocString(text)) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  Text(Text&&) = delete;
  Text& operator=(Text&&) = delete;
  ~Text() { SysFreeString(text_); }

  [[nodiscard]] BSTR get() const { return text_; }
  [[nodiscard]] BSTR* put() { return &text_; }
  [[nodiscard]] std::wstring str() const { return {text_, text_ + SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

// Owns one value of any kind.
class Value {
 public:
  Value() { VariantInit(&value_); }
  explicit Value(const wchar_t* text) : Value() {
    V_VT(&value_) = VT_BSTR;
    V_BSTR(&value_) = SysAllocString(text);
  }
  explicit Value(double number) : Value() {
    V_VT(&value_) = VT_R8;
    V_R8(&value_) = number;
  }
  explicit Value(int number) : Value() {
    V_VT(&value_) = VT_I4;
    V_I4(&value_) = number;
  }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  Value(Value&&) = delete;
  Value& operator=(Value&&) = delete;
  ~Value() { VariantClear(&value_); }

  // What stands for an optional argument that the call leaves out.
  [[nodiscard]] static VARIANT missing() {
    VARIANT value;
    V_VT(&value) = VT_ERROR;
    V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
    return value;
  }

  [[nodiscard]] const VARIANT& get() const { return value_; }
  [[nodiscard]] VARIANT* put() { return &value_; }
  [[nodiscard]] long number() const {
    return V_VT(&value_) == VT_I2 ? V_I2(&value_) : V_I4(&value_);
  }
  [[nodiscard]] std::wstring str() const { return V_BSTR(&value_); }

 private:
  VARIANT value_;
};

// Owns one reference to an object.
template <class Interface>
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  Object(Object&&) = delete;
  Object& operator=(Object&&) = delete;
  ~Object() {
    if (object_) object_->Release();
  }

  Interface* operator->() const { return object_; }
  [[nodiscard]] Interface** put() { return &object_; }

 private:
  Interface* object_ = nullptr;
};

// A failed call, with the source and the description that the library left.
struct Failure {
  HRESULT result;
  std::wstring source;
  std::wstring description;
};

inline Failure lastFailure(HRESULT result) {
  Failure failure{result, {}, {}};
  Object<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) == S_OK) {
    Text source;
    Text description;
    info->GetSource(source.put());
    info->GetDescription(description.put());
    failure.source = source.str();
    failure.description = description.str();
  }
  return failure;
}

// Every member returns a success or a failure; this turns the latter into an exception.
inline void check(HRESULT result) {
  if (FAILED(result)) throw lastFailure(result);
}

}  // namespace host
