// Numbers of the general commands: plain digits with a decimal comma.
#pragma once

#include "basic/format.h"
#include "basic/text.h"

#include <string>
#include <string_view>

namespace corvid {

// Formats a Decimal, Currency or double by the pattern, under every locale with "," where the
// pattern has its point.
template <class Number>
[[nodiscard]] std::wstring withDecimalComma(const Number& value, std::wstring_view pattern) {
  return replaceAll(format(value, pattern), L".", L",");
}

}  // namespace corvid
