// The command texts of totals and closing, before they are framed: values in, text out, nothing
// sent. Payment amounts come as the digit strings of the session's payment format.
#pragma once

#include "basic/decimal.h"

#include <string>
#include <string_view>

namespace corvid {

[[nodiscard]] std::wstring subtotalCommand(bool print);
// Hundredths of a percent, rounded toward minus infinity.
[[nodiscard]] std::wstring percentageDiscountCommand(const Decimal& percentage);
[[nodiscard]] std::wstring amountDiscountCommand(std::wstring_view amount);
[[nodiscard]] std::wstring generalDiscountCommand(bool isPercentage, bool isDiscount,
                                                  const Decimal& value);
// The letter ("2" for an invoice, "f" for a credit note), two digits of means, the amount.
[[nodiscard]] std::wstring paymentCommand(std::wstring_view letter, const Decimal& means,
                                          std::wstring_view amount);

}  // namespace corvid
