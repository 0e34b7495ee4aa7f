#include "basic/run_time_error.h"

#include <string>
#include <utility>

namespace corvid {

RunTimeError::RunTimeError(std::int32_t number, std::wstring source, std::wstring description)
    : std::runtime_error("run-time error " + std::to_string(number)),
      number_(number),
      source_(std::move(source)),
      description_(std::move(description)) {}

RunTimeError invalidProcedureCall() { return {5, L"", L"Invalid procedure call or argument"}; }
RunTimeError overflow() { return {6, L"", L"Overflow"}; }
RunTimeError outOfMemory() { return {7, L"", L"Out of memory"}; }
RunTimeError subscriptOutOfRange() { return {9, L"", L"Subscript out of range"}; }
RunTimeError divisionByZero() { return {11, L"", L"Division by zero"}; }
RunTimeError typeMismatch() { return {13, L"", L"Type mismatch"}; }

}  // namespace corvid
