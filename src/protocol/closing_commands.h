// The command texts of totals and closing, before they are framed: values in, text out, nothing
// sent. Payment amounts come as the digit strings of the session's payment format.
#pragma once

#include "basic/decimal.h"

#include <string>
#include <string_view>

namespace corvid {

inline constexpr const wchar_t* kCancelDocument = L"7";
// Closes an invoice by payment method 1, without an amount.
inline constexpr const wchar_t* kCloseWithoutAmount = L"101";

[[nodiscard]] std::wstring subtotalCommand(bool print);
// Hundredths of a percent, rounded toward minus infinity.
[[nodiscard]] std::wstring percentageDiscountCommand(const Decimal& percentage);
[[nodiscard]] std::wstring amountDiscountCommand(std::wstring_view amount);
[[nodiscard]] std::wstring generalDiscountCommand(bool isPercentage, bool isDiscount,
                                                  const Decimal& value);
// Two digits of the payment method, rounded half away from zero, and the amount.
[[nodiscard]] std::wstring invoicePaymentCommand(const Decimal& method, std::wstring_view amount);
[[nodiscard]] std::wstring creditNotePaymentCommand(const Decimal& method,
                                                    std::wstring_view amount);

}  // namespace corvid
