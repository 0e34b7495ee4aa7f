// The run-time errors of the automation world: a number, a source and a description.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace corvid {

// An error that a host sees as Err.Number, Err.Source and Err.Description. Numbers 1 to 65535 are
// run-time errors (the boundary turns n into 0x800A0000 + n); a negative number is an HRESULT and
// crosses the boundary as it stands. An empty source means "the library itself".
class RunTimeError : public std::runtime_error {
 public:
  RunTimeError(std::int32_t number, std::wstring source, std::wstring description);

  [[nodiscard]] std::int32_t number() const noexcept { return number_; }
  [[nodiscard]] const std::wstring& source() const noexcept { return source_; }
  [[nodiscard]] const std::wstring& description() const noexcept { return description_; }

 private:
  std::int32_t number_;
  std::wstring source_;
  std::wstring description_;
};

// The standard run-time errors, with the platform's own words and an empty source.
[[nodiscard]] RunTimeError invalidProcedureCall();  // 5
[[nodiscard]] RunTimeError overflow();              // 6
[[nodiscard]] RunTimeError outOfMemory();           // 7
[[nodiscard]] RunTimeError subscriptOutOfRange();   // 9
[[nodiscard]] RunTimeError divisionByZero();        // 11
[[nodiscard]] RunTimeError typeMismatch();          // 13

}  // namespace corvid
