// Numbers as texts: a number, a pattern, and a count of decimals and of digits, a line each.
#include "basic/format.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "input.h"
#include "support/error_of.h"
#include "support/world.h"

#include <cmath>

namespace corvid {
namespace {

using fuzz::require;

bool isPattern(std::wstring_view text) {
  return text.find_first_not_of(L"0#,.") == std::wstring_view::npos;
}

int decimalsOf(std::wstring_view pattern) {
  const std::size_t point = std::min(pattern.find(L'.'), pattern.size());
  return static_cast<int>(std::ranges::count_if(
      pattern.substr(point), [](wchar_t place) { return place == L'0' || place == L'#'; }));
}

// A number as it stands in a text of the invariant locale; zero where no digit shows.
Decimal readBack(std::wstring_view text) {
  std::wstring digits(text);
  std::erase(digits, L',');
  return Decimal::parse(digits).value_or(Decimal());
}

// Points for commas, and commas for points.
std::wstring exchanged(std::wstring text) {
  for (wchar_t& character : text) {
    character = character == L'.' ? L',' : character == L',' ? L'.' : character;
  }
  return text;
}

void checkPattern(const Decimal& value, std::wstring_view pattern) {
  const Decimal rounded = value.roundedHalfAway(decimalsOf(pattern));
  const std::wstring text = format(value, pattern);
  require(readBack(text) == rounded, "a text shows the rounded value");
  require(text.starts_with(L'-') == rounded.isNegative(), "a minus shows, and never before zero");
  require(exchanged(text) == format(value, pattern, venezuelan()), "locales change marks alone");
}

void checkMoney(const Decimal& value) {
  for (int form = 0; form < 16; ++form) {
    Locale locale = {.positiveCurrencyForm = form, .negativeCurrencyForm = form};
    const std::wstring text = format(value, L"Currency", locale);
    std::wstring digits = text;
    std::erase_if(digits, [](wchar_t c) { return c != L'.' && (c < L'0' || c > L'9'); });
    require(readBack(digits) == value.roundedHalfAway(2).absolute(), "money has two decimals");
    require(text.find(locale.currencySymbol) != std::wstring::npos, "money has its symbol");
  }
}

void checkFixedPoint(const Decimal& value, int digits, int decimals) {
  const std::wstring text = formatFixedPoint(value, digits, decimals);
  const Decimal shown = readBack(text).timesPowerOfTen(-decimals);
  const Decimal half = Decimal::fromUnscaled(5, decimals + 1);
  require((shown - value).absolute() <= half, "fixed point is the nearest value");
  require(text.size() >= static_cast<std::size_t>(digits), "no digit is cut");
}

void checkDefaultForm(const Decimal& value) {
  if (std::abs(value.magnitude()) > 300) return;
  const double number = value.toDouble();
  const std::wstring text = toText(number, Locale{});
  require(Decimal::fromDouble(leadingNumberOrZero(text)) == Decimal::fromDouble(number),
          "the default form reads back by its fifteen digits");
}

}  // namespace
}  // namespace corvid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid;
  fuzz::Input input(data, size);
  const std::optional<Decimal> value = Decimal::parse(input.text());
  const std::wstring pattern = input.text();
  const int digits = input.number(0, 20);
  const int decimals = input.number(0, 20);
  if (!value || !isPattern(pattern)) return -1;
  checkPattern(*value, pattern);
  checkMoney(*value);
  checkFixedPoint(*value, digits, decimals);
  checkDefaultForm(*value);
  return 0;
}
