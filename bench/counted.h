// What the benchmarks of this folder share.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

namespace corvid {

// The time that a message needs on the line, given as the counter "wire" of each run: 9600 baud,
// 11 bits a byte.
inline void countWire(benchmark::State& state, std::size_t bytes) {
  state.counters["wire"] = static_cast<double>(bytes) * 11 / 9600;
}

}  // namespace corvid
