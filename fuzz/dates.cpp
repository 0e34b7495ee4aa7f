// Dates: a text to read, a count of days, and the patterns of a region, a line each.
#include "basic/conversions.h"
#include "basic/date.h"
#include "basic/format.h"
#include "input.h"
#include "records/printer_date.h"
#include "support/error_of.h"
#include "support/fake_clock.h"

#include <cmath>

namespace corvid {
namespace {

using fuzz::require;

constexpr double kHalfSecond = 0.5 / 86400;

void checkText(std::wstring_view text) {
  const std::optional<Date> date = parseDate(text);
  if (!date) return;
  require(fromParts(toParts(*date)) == date, "a date is its parts");
  require(parseDate(format(*date, L"yyyy-mm-dd hh:nn:ss")) == date, "a date's text is the date");
}

void checkDays(Date date, const Locale& locale) {
  DateParts parts;
  const int error = errorOf([&] {
    parts = toParts(date);
    return toText(date, locale);
  });
  require(error == 0 || error == 5, "a date too far away is an invalid argument");
  if (error != 0) return;
  const std::optional<Date> whole = fromParts(parts);
  require(whole.has_value(), "parts name a day");
  const bool isNear = std::fabs(whole->days - date.days) <= kHalfSecond + 1e-9;
  // A fraction counts forward from midnight, so that the last half second of a day before the zero
  // date is two days away from the midnight that it rounds to.
  require(isNear || date.days < 0, "parts are the nearest second");
}

void checkPrinterDate(std::wstring_view date, std::wstring_view time) {
  FakeClock clock;
  const DateParts parts = toParts(ParseFechaHora(date, time, clock));
  require(parts.year == 1899 || (parts.year >= 1900 && parts.year <= 2099), "a printer's date");
}

}  // namespace
}  // namespace corvid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid;
  fuzz::Input input(data, size);
  const std::wstring text = input.text();
  const std::optional<double> days = leadingNumber(input.text());
  Locale locale;
  locale.shortDatePattern = input.text();
  locale.timePattern = input.text();
  checkText(text);
  if (days) checkDays({*days}, locale);
  checkPrinterDate(text, locale.timePattern);
  return 0;
}
