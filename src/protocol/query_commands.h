// The command texts of queries, before they are framed.
#pragma once

#include "basic/decimal.h"

#include <string>

namespace corvid {

inline constexpr const wchar_t* kQueryCounters = L"S1";
inline constexpr const wchar_t* kQueryDocument = L"S2";
inline constexpr const wchar_t* kQueryRates = L"S3";
inline constexpr const wchar_t* kQueryPayments = L"S4";
inline constexpr const wchar_t* kQueryDailySummary = L"U0Z";

// The Z reports of a range of numbers, with six digits each: rounded half away from zero, never
// cut.
[[nodiscard]] std::wstring zReportsQuery(const Decimal& first, const Decimal& last);

}  // namespace corvid
