// How much of what waits in a line is taken at once.
#pragma once

#include <cstdint>

namespace corvid {

// Bytes that one read takes at most.
inline constexpr std::uint32_t kReadBufferSize = 4096;
// Reads of one discard at most: a line that never falls quiet must not hold a command.
inline constexpr int kMostDiscards = 64;

}  // namespace corvid
