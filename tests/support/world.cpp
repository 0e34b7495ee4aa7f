#include "support/world.h"

namespace corvid {

Locale venezuelan() {
  Locale locale;
  locale.decimalSeparator = L",";
  locale.thousandsSeparator = L".";
  locale.currencyDecimalSeparator = L",";
  locale.currencyThousandsSeparator = L".";
  locale.currencySymbol = L"Bs.";
  locale.positiveCurrencyForm = 2;
  locale.negativeCurrencyForm = 12;
  locale.shortDatePattern = L"dd/MM/yyyy";
  locale.timePattern = L"hh:mm:ss tt";
  locale.morning = L"a. m.";
  locale.afternoon = L"p. m.";
  return locale;
}

}  // namespace corvid
