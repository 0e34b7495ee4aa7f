// The fixed-point digit strings of prices, quantities and payments.
#pragma once

#include "basic/decimal.h"
#include "platform/settings.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace corvid {

enum class AmountKind { Price, Quantity, Payment };

struct AmountFormat {
  std::int16_t digits = 0;  // 0: not yet known
  std::int16_t decimals = 0;
};

// The printer's own format of a kind, chosen by printer flag 21.
[[nodiscard]] AmountFormat printerFormat(AmountKind kind, std::int16_t flag21);

// Formats of one session, read on first use: from the settings "DigitosPrecio"/"DecimalesPrecio"
// and their like, or, if either is negative, from printer flag 21.
class AmountFormats {
 public:
  struct Flag21 {
    std::int16_t value = 0;
    bool isKnown = false;  // false: the printer could not be asked
  };
  // loadFlag21 asks the printer where needed; what it cannot know is not kept.
  AmountFormats(const Settings& settings, std::function<Flag21()> loadFlag21)
      : settings_(settings), loadFlag21_(std::move(loadFlag21)) {}

  // Int(amount x 10^decimals + 0.5), zero-padded to the kind's digits, never cut.
  [[nodiscard]] std::wstring digits(AmountKind kind, const Decimal& amount);

 private:
  [[nodiscard]] AmountFormat formatOf(AmountKind kind);

  const Settings& settings_;
  std::function<Flag21()> loadFlag21_;
  std::array<AmountFormat, 3> cache_;
};

}  // namespace corvid
