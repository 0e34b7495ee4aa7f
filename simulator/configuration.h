// What makes one printer differ from another.
#pragma once

#include "simulator/amounts.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

// Rates of items by index: 0 exempt, 1 to 3 taxed (general, reduced, additional), 4 a collected
// levy, which bears no tax and takes part in no discount.
inline constexpr std::size_t kRateCount = 5;
inline constexpr std::size_t kTaxRates = 3;
inline constexpr std::size_t kCollectedRate = 4;
inline constexpr std::size_t kPaymentMeans = 24;
inline constexpr std::size_t kFlagCount = 64;

// The tax rates at index 1 to 3.
using Rates = std::array<Rate, kTaxRates>;

// Layouts of the counters' reply: long has 16 fields, the time before the date; short has 14.
enum class CountersLayout { Long, Short };

// What a printer model fixes.
struct Model {
  std::string_view name;
  CountersLayout counters = CountersLayout::Long;
};

// A model by its name ("long", "short").
[[nodiscard]] std::optional<Model> modelNamed(std::string_view name);

struct Configuration {
  Model model = *modelNamed("long");
  std::string serial = "Z1F0000001";
  std::string rif = "J-12345678-9";
  std::vector<std::string> header = {"COMERCIO DE PRUEBA, C.A.", "AV. PRINCIPAL, LOCAL 1",
                                     "CARACAS"};
  Rates rates = {Rate{false, 1600}, Rate{false, 800}, Rate{false, 3100}};
  std::optional<Rate> igtf = Rate{false, 300};  // nothing: the printer does not report one
  std::array<int, kFlagCount> flags{};          // 0 to 99 each; flag 21 chooses number formats
  int cashier = 0;                              // 0 to 99
  int lastInvoice = 0;                          // number of the last invoice before the first one
};

// A rate as it stands on the line: '1' (included) or '2' (added) and four digits, as "21600".
[[nodiscard]] std::string wireRate(Rate rate);
[[nodiscard]] std::optional<Rate> parsedRate(std::string_view text);

}  // namespace corvid::simulator
