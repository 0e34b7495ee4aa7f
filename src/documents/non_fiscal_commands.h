// The command texts of housekeeping, before they are framed: values in, text out, nothing sent.
#pragma once

#include "basic/date.h"
#include "basic/decimal.h"

#include <string>
#include <string_view>

namespace corvid {

[[nodiscard]] std::wstring nonFiscalCommand(std::wstring_view text, bool close);
// The line's own sign (a number's text, or a letter), then the text centred to 40 characters.
[[nodiscard]] std::wstring programmedLineCommand(std::wstring_view sign, std::wstring_view text);
[[nodiscard]] std::wstring setDateCommand(Date date);
[[nodiscard]] std::wstring setTimeCommand(Date time);
[[nodiscard]] std::wstring loginCommand(const Decimal& cashier);
[[nodiscard]] std::wstring setFlagCommand(const Decimal& flag, const Decimal& value);

// The limits of a range of stored documents, seven digits each.
[[nodiscard]] std::wstring reprintLimit(Date date);
[[nodiscard]] std::wstring reprintLimit(const Decimal& number);
// "a" to "z" in the order of character codes, which tells that the limits are dates.
[[nodiscard]] bool takesDates(std::wstring_view reprintCommand);

}  // namespace corvid
