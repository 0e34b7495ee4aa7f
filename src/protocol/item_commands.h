// The command texts of item lines, before they are framed: values in, text out, nothing sent.
#pragma once

#include "basic/code_page.h"
#include "basic/decimal.h"

#include <cstdint>
#include <string>

namespace corvid {

// The rate before a classic line, by rate index (0 exempt, 1 to 3, and on for the collected
// levy). It is made of single bytes; one outside 0 to 255 is an invalid procedure call (5).
[[nodiscard]] std::wstring salePrefix(int index, const CodePage& codePage);
[[nodiscard]] std::wstring refundPrefix(int index, const CodePage& codePage);
[[nodiscard]] std::wstring voidPrefix(int index, const CodePage& codePage);

// The kinds of general lines that have a member of their own; a host may name others.
inline constexpr const wchar_t* kInvoiceLine = L"F+";
inline constexpr const wchar_t* kInvoiceVoid = L"F-";
inline constexpr const wchar_t* kCreditLine = L"C+";
inline constexpr const wchar_t* kCreditVoid = L"C-";

struct GeneralLine {
  std::wstring kind;
  std::int16_t index = 0;
  Decimal price;      // written with two decimals
  Decimal quantity;   // written with three
  std::wstring code;  // may be empty
  std::wstring description;
};

[[nodiscard]] std::wstring generalCommand(const GeneralLine& line);

}  // namespace corvid
