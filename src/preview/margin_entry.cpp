#include "preview/margin_entry.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

#include <algorithm>
#include <cmath>

namespace corvid {
namespace {

constexpr double kGreatestMargin = 32767;

bool isNumeric(wchar_t character) {
  return isDigit(character) || character == L',' || character == L'.';
}

double numberOf(std::wstring_view entry) {
  try {
    return leadingNumberOrZero(entry);
  } catch (const RunTimeError&) {
    return 0;
  }
}

}  // namespace

bool IsValidNumber(std::wstring& value) {
  if (value.empty()) return true;
  value = trim(value);
  TextView digits = value;
  if (digits.starts_with(L'-')) digits.remove_prefix(1);
  return std::ranges::all_of(digits, isNumeric);
}

std::wstring wholePart(std::wstring_view entry) {
  return toText(std::floor(numberOf(entry)), Locale{});
}

std::int16_t marginOf(std::wstring_view entry) {
  try {
    return std::max(toInt16(numberOf(entry)), std::int16_t{0});
  } catch (const RunTimeError&) {
    return 0;
  }
}

std::wstring steppedMargin(std::wstring_view entry, int steps) {
  const double whole = std::min(std::floor(numberOf(entry)), kGreatestMargin);
  return toText(std::clamp(whole + steps, 0.0, kGreatestMargin), Locale{});
}

}  // namespace corvid
