// The user's conventions for numbers, money and dates, as plain values.
#pragma once

#include <string>

namespace corvid {

// What a person's region asks of a text. The defaults are the invariant locale, which is also the
// one for everything that goes to a printer or a file format.
struct Locale {
  std::wstring decimalSeparator = L".";
  std::wstring thousandsSeparator = L",";
  std::wstring currencyDecimalSeparator = L".";
  std::wstring currencyThousandsSeparator = L",";
  std::wstring currencySymbol = L"$";
  int currencyDecimals = 2;
  // Windows' numbering of money forms. Positive 0: $1, 1: 1$, 2: $ 1, 3: 1 $.
  int positiveCurrencyForm = 0;
  // Negative 0 to 15: 0 ($1) 1 -$1 2 $-1 3 $1- 4 (1$) 5 -1$ 6 1-$ 7 1$- 8 -1 $ 9 -$ 1 10 1 $-
  // 11 $ 1- 12 $ -1 13 1- $ 14 ($ 1) 15 (1 $).
  int negativeCurrencyForm = 0;
  // Default text form of a date: Windows' short date and time patterns (d dd M MM yy yyyy, H HH
  // h hh mm ss tt, quoted text). Names of days and months show as numbers.
  std::wstring shortDatePattern = L"MM/dd/yyyy";
  std::wstring timePattern = L"HH:mm:ss";
  std::wstring morning = L"AM";
  std::wstring afternoon = L"PM";
};

// Asked for each text, because a user may change the region while a host runs.
class LocaleSource {
 public:
  virtual ~LocaleSource() = default;
  [[nodiscard]] virtual Locale current() const = 0;
};

}  // namespace corvid
