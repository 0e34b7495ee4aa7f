#include "simulator/device/configuration.h"

#include <algorithm>

namespace corvid::simulator {
namespace {

struct CountersName {
  std::string_view name;
  Model model;  // with the summary that it has where none is named
};

constexpr std::array kCountersNames = {CountersName{"long", {CountersLayout::Long, 39}},
                                       CountersName{"short", {CountersLayout::Short, 20}}};

constexpr std::array<std::size_t, 8> kSummaries = {20, 29, 30, 31, 38, 39, 40, 41};

bool isSummary(std::size_t fields) {
  return std::find(kSummaries.begin(), kSummaries.end(), fields) != kSummaries.end();
}

}  // namespace

std::optional<Model> modelNamed(std::string_view name) {
  const auto dash = std::min(name.find('-'), name.size());
  const auto* found =
      std::find_if(kCountersNames.begin(), kCountersNames.end(),
                   [&](const CountersName& entry) { return entry.name == name.substr(0, dash); });
  if (found == kCountersNames.end()) {
    return std::nullopt;
  }
  std::string_view fields = name.substr(dash);
  Model model = found->model;
  if (!fields.empty()) {
    fields.remove_prefix(1);
    const auto number = takeDigits(fields, 2);
    model.summaryFields = fields.empty() ? static_cast<std::size_t>(number.value_or(0)) : 0;
  }
  return isSummary(model.summaryFields) ? std::optional(model) : std::nullopt;
}

std::string wireRate(Rate rate) {
  return (rate.isIncluded ? "1" : "2") + zeroPadded(rate.hundredths, 4);
}

std::optional<Rate> parsedRate(std::string_view text) {
  const auto kind = takeDigits(text, 1);
  const auto hundredths = takeDigits(text, 4);
  if (!kind || *kind < 1 || *kind > 2 || !hundredths || !text.empty()) {
    return std::nullopt;
  }
  return Rate{*kind == 1, static_cast<int>(*hundredths)};
}

}  // namespace corvid::simulator
