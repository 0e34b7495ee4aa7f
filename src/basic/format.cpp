#include "basic/format.h"

#include <algorithm>
#include <array>

namespace corvid {
namespace {

// What a number's text is made of, apart from its sign.
struct NumberForm {
  std::size_t minInteger;  // digits
  std::size_t minFraction;
  int maxFraction;
  bool isGrouped;
  bool hasPoint;
  std::wstring decimalSeparator;
  std::wstring thousandsSeparator;
};

bool isPlace(wchar_t character) { return character == L'0' || character == L'#'; }

std::size_t placesIn(std::wstring_view pattern) {
  return static_cast<std::size_t>(std::ranges::count_if(pattern, isPlace));
}

std::wstring_view from(std::wstring_view text, std::size_t position) {
  return text.substr(std::min(position, text.size()));
}

NumberForm formOf(std::wstring_view pattern, const Locale& locale) {
  const std::size_t point = pattern.find(L'.');
  const std::wstring_view whole = pattern.substr(0, point);
  const std::wstring_view fraction = from(pattern, point);
  return {.minInteger = placesIn(from(whole, whole.find(L'0'))),
          .minFraction = placesIn(fraction.substr(0, fraction.rfind(L'0') + 1)),
          .maxFraction = static_cast<int>(placesIn(fraction)),
          .isGrouped = whole.find(L',') != std::wstring_view::npos,
          .hasPoint = point != std::wstring_view::npos,
          .decimalSeparator = locale.decimalSeparator,
          .thousandsSeparator = locale.thousandsSeparator};
}

NumberForm moneyForm(const Locale& locale) {
  const int decimals = std::max(locale.currencyDecimals, 0);
  return {.minInteger = 1,
          .minFraction = static_cast<std::size_t>(decimals),
          .maxFraction = decimals,
          .isGrouped = true,
          .hasPoint = decimals > 0,
          .decimalSeparator = locale.currencyDecimalSeparator,
          .thousandsSeparator = locale.currencyThousandsSeparator};
}

void padFront(std::wstring& digits, std::size_t length) {
  digits.insert(0, length - std::min(length, digits.size()), L'0');
}

void group(std::wstring& digits, const std::wstring& separator) {
  for (std::size_t place = digits.size(); place > 3;) {
    place -= 3;
    digits.insert(place, separator);
  }
}

std::wstring unsignedText(const Decimal& rounded, const NumberForm& form) {
  std::wstring text = rounded.integerDigits();
  padFront(text, form.minInteger);
  if (form.isGrouped) group(text, form.thousandsSeparator);
  if (!form.hasPoint) return text;
  std::wstring fraction = rounded.fractionDigits();
  fraction.resize(std::max(fraction.size(), form.minFraction), L'0');
  return text + form.decimalSeparator + fraction;
}

// Where the symbol ($) and the digits (1) of an amount stand.
constexpr std::array<std::wstring_view, 4> kPositiveForms = {L"$1", L"1$", L"$ 1", L"1 $"};
constexpr std::array<std::wstring_view, 16> kNegativeForms = {
    L"($1)", L"-$1",  L"$-1",  L"$1-",  L"(1$)", L"-1$",  L"1-$",   L"1$-",
    L"-1 $", L"-$ 1", L"1 $-", L"$ 1-", L"$ -1", L"1- $", L"($ 1)", L"(1 $)"};

// A form that does not exist counts as the first.
template <std::size_t Count>
std::wstring_view formNumber(const std::array<std::wstring_view, Count>& forms, int number) {
  const auto index = static_cast<std::size_t>(std::max(number, 0));
  return forms.at(index < Count ? index : 0);
}

std::wstring moneyText(const Decimal& value, const Locale& locale) {
  const NumberForm form = moneyForm(locale);
  const Decimal rounded = value.roundedHalfAway(form.maxFraction);
  const std::wstring_view places = rounded.isNegative()
                                       ? formNumber(kNegativeForms, locale.negativeCurrencyForm)
                                       : formNumber(kPositiveForms, locale.positiveCurrencyForm);
  std::wstring text;
  for (const wchar_t place : places) {
    if (place == L'$') {
      text += locale.currencySymbol;
    } else if (place == L'1') {
      text += unsignedText(rounded, form);
    } else {
      text += place;
    }
  }
  return text;
}

}  // namespace

std::wstring format(const Decimal& value, std::wstring_view pattern, const Locale& locale) {
  if (pattern == L"Currency") return moneyText(value, locale);
  const NumberForm form = formOf(pattern, locale);
  const Decimal rounded = value.roundedHalfAway(form.maxFraction);
  return (rounded.isNegative() ? L"-" : L"") + unsignedText(rounded, form);
}

std::wstring format(Currency value, std::wstring_view pattern, const Locale& locale) {
  return format(value.toDecimal(), pattern, locale);
}

std::wstring format(double value, std::wstring_view pattern, const Locale& locale) {
  return format(Decimal::fromDouble(value), pattern, locale);
}

std::wstring formatInteger(long long value, std::wstring_view pattern, const Locale& locale) {
  return format(Decimal::fromInteger(value), pattern, locale);
}

std::wstring formatFixedPoint(const Decimal& value, int digits, int decimals) {
  const Decimal half = Decimal::fromUnscaled(5, 1);
  const Decimal whole = (value.timesPowerOfTen(decimals) + half).floor();
  std::wstring text = whole.integerDigits();
  padFront(text, static_cast<std::size_t>(std::max(digits, 0)));
  return (whole.isNegative() ? L"-" : L"") + text;
}

}  // namespace corvid
