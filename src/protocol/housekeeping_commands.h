// The command texts of housekeeping, before they are framed: values in, text out, nothing sent.
#pragma once

#include "basic/code_page.h"
#include "basic/date.h"
#include "basic/decimal.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

inline constexpr const wchar_t* kOpenDrawer = L"w";
inline constexpr const wchar_t* kReset = L"e";
inline constexpr const wchar_t* kLogoff = L"6";
inline constexpr const wchar_t* kStartTraining = L"T1";
inline constexpr const wchar_t* kEndTraining = L"T2";
inline constexpr const wchar_t* kCloseDay = L"I0Z";

// A line of a non-fiscal document, cut to 40 characters.
[[nodiscard]] std::wstring nonFiscalCommand(std::wstring_view text, bool close);
// Range and kind are the printer's own letters.
[[nodiscard]] std::wstring reportCommand(std::wstring_view range, std::wstring_view kind);

// Programmed lines are centred to 40 characters. A footer's line number is written as the character
// of the code number + 64; invalid procedure call (5) where that is no byte.
[[nodiscard]] std::wstring headerCommand(std::wstring_view lineNumber, std::wstring_view text);
[[nodiscard]] std::wstring footerCommand(std::int32_t lineNumber, std::wstring_view text,
                                         const CodePage& codePage);

[[nodiscard]] std::wstring setDateCommand(Date date);
[[nodiscard]] std::wstring setTimeCommand(Date time);
[[nodiscard]] std::wstring loginCommand(const Decimal& cashier);
[[nodiscard]] std::wstring setFlagCommand(const Decimal& flag, const Decimal& value);

// The letter of stored invoices.
inline constexpr const wchar_t* kStoredInvoices = L"F";
// Stored documents of a kind, between two limits of seven digits each.
[[nodiscard]] std::wstring reprintCommand(std::wstring_view kind, std::wstring_view first,
                                          std::wstring_view last);
[[nodiscard]] std::wstring reprintLimit(Date date);
[[nodiscard]] std::wstring reprintLimit(const Decimal& number);
// Kinds from "a" to "z", in the order of character codes, have dates as their limits.
[[nodiscard]] bool isLimitedByDates(std::wstring_view kind);

}  // namespace corvid
