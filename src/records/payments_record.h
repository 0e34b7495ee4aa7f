// PrinterResponse4: the accumulated amount of each payment method (reply to "S4").
#pragma once

#include "basic/currency.h"
#include "basic/decimal.h"
#include "records/field_array.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace corvid {

class PaymentsRecord {
 public:
  static constexpr std::size_t kMostMethods = 24;

  bool isFake = false;  // True after loadFake; no reply clears it

  // How many payment method were loaded, at most 24.
  [[nodiscard]] std::int16_t nMedios() const { return nMedios_; }

  // The amounts stay, but are no longer shown.
  void loadFake();
  // Reads at most 24 fields. Throws where one is no number (13) or too large (6); the amounts
  // before it are stored and nMedios is 0.
  void loadFromResponse(const FieldArray& fields);
  // The amount of the n-th method, counted from 1; 0 for n below 1 or above nMedios. Between two
  // whole numbers, n - 1 is rounded half to even.
  [[nodiscard]] Currency valor(const Decimal& n) const;

 private:
  std::array<Currency, kMostMethods> amounts_;
  std::int16_t nMedios_ = 0;
};

}  // namespace corvid
