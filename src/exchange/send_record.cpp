#include "exchange/send_record.h"

#include <algorithm>
#include <limits>

namespace corvid {

std::int32_t SendRecord::milliseconds() const {
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  constexpr double kMillisecondsPerSecond = 1000;
  return static_cast<std::int32_t>(std::min(seconds_ * kMillisecondsPerSecond, kMost));
}

}  // namespace corvid
