// Fields of the replies: their widths, and how they make one text.
#pragma once

#include "simulator/device/amounts.h"

#include <string>
#include <vector>

namespace corvid::simulator {

using Fields = std::vector<std::string>;

// Hundredths without a point, ten digits or as many as it takes.
[[nodiscard]] std::string money(Amount amount);
[[nodiscard]] std::string documentNumber(int number);  // eight digits
[[nodiscard]] std::string zReportNumber(int number);   // four digits

void append(Fields& fields, Fields more);

// Fields joined by line feeds, none at the end.
[[nodiscard]] std::string joined(const Fields& fields);

}  // namespace corvid::simulator
