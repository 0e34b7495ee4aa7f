// What makes one printer differ from another.
#pragma once

#include "simulator/device/amounts.h"

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
inline constexpr std::size_t kPaymentMethods = 24;
inline constexpr std::size_t kFlagCount = 64;

// Means of payment from here on are foreign currency, on which a levy (IGTF) is due.
inline constexpr std::size_t kFirstForeignMethod = 20;

// Lines that the host can program above and below a document.
inline constexpr std::size_t kProgrammedLines = 8;

// The tax rates at index 1 to 3.
using Rates = std::array<Rate, kTaxRates>;

// Layouts of the counters' reply: long has 16 fields, the time before the date; short has 14.
enum class CountersLayout { Long, Short };

// What a printer model fixes.
struct Model {
  CountersLayout counters = CountersLayout::Long;
  std::size_t summaryFields = 39;  // of the daily summary: 20, 29, 30, 31, or 38 to 41
};

// A model by its name: "long" or "short" for the counters, and perhaps "-" and the number of fields
// of the summary, as in "short-29". Without it long has 39 and short has 20.
[[nodiscard]] std::optional<Model> modelNamed(std::string_view name);

struct Configuration {
  Model model = *modelNamed("long");
  std::string serial = "Z1F0000001";
  std::string rif = "J-12345678-9";
  // Programmed lines by number, the first at index 0; an empty one is not printed.
  std::vector<std::string> header = {"COMERCIO DE PRUEBA, C.A.", "AV. PRINCIPAL, LOCAL 1",
                                     "CARACAS"};
  std::vector<std::string> footer;
  Rates rates = {Rate{false, 1600}, Rate{false, 800}, Rate{false, 3100}};
  // The levy on payments in foreign currency, always added to them, whatever kind it reports;
  // nothing: the printer neither reports nor collects one.
  std::optional<Rate> igtf = Rate{false, 300};
  std::array<int, kFlagCount> flags{};  // 0 to 99 each; flag 21 chooses number formats
  int cashier = 0;                      // 0 to 99
  int lastInvoice = 0;                  // number of the last invoice before the first one
};

// A rate as it stands on the line: '1' (included) or '2' (added) and four digits, as "21600".
[[nodiscard]] std::string wireRate(Rate rate);
[[nodiscard]] std::optional<Rate> parsedRate(std::string_view text);

}  // namespace corvid::simulator
