// What a failed call of a stream leaves behind.
#pragma once

#include <cstdint>
#include <string>

namespace corvid {

// Numbers of the library's own; all others are the system's.
constexpr std::int32_t kPortInUse = -1;
constexpr std::int32_t kWrongAddress = -2;
// A call failed and the system gave no reason: Windows' "a device does not work".
constexpr std::uint32_t kErrorGenFailure = 31;

struct CommError {
  std::int32_t number = 0;
  std::wstring source;  // such as "CommOpen (CreateFile)"
  std::wstring description;

  // "Error (" number "): " source " - " description.
  [[nodiscard]] std::wstring text() const {
    return L"Error (" + std::to_wstring(number) + L"): " + source + L" - " + description;
  }
};

// The words of kPortInUse.
inline constexpr const wchar_t* kPortInUseText = L"Port in use.";

}  // namespace corvid
