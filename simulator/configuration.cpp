#include "simulator/configuration.h"

#include <algorithm>

namespace corvid::simulator {
namespace {

constexpr std::array kModels = {Model{"long", CountersLayout::Long},
                                Model{"short", CountersLayout::Short}};

}  // namespace

std::optional<Model> modelNamed(std::string_view name) {
  const auto* found = std::find_if(kModels.begin(), kModels.end(),
                                   [&](const Model& model) { return model.name == name; });
  return found == kModels.end() ? std::nullopt : std::optional(*found);
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
