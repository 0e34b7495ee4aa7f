// What --help says.
#pragma once

#include <string>
#include <string_view>

namespace corvid::simulator {

// Examples first, then every option and every line of steering.
[[nodiscard]] std::string help();

// An entry of a list: the name in a column of its own, the words beside it in lines of at most 100
// columns.
[[nodiscard]] std::string helpLine(std::string_view name, std::string_view words);

}  // namespace corvid::simulator
