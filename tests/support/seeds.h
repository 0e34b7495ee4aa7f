// Random cases, each drawn from a seed.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>

namespace corvid {

// What one seed gives; the same on every system.
class Draw {
 public:
  explicit Draw(unsigned seed) : random_(seed) {}
  // Below `end`, which is above 0.
  int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  int between(int first, int last) { return first + below(last - first + 1); }
  bool oneIn(int times) { return below(times) == 0; }
  template <class Value, std::size_t count>
  Value oneOf(const Value (&values)[count]) {
    return values[below(static_cast<int>(count))];
  }

 private:
  std::mt19937 random_;
};

[[nodiscard]] inline unsigned environmentNumber(const char* name, unsigned usual) {
  const char* const text = std::getenv(name);
  return text == nullptr ? usual : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

// How many sales are tried; other tests take a share of it.
[[nodiscard]] inline unsigned seedCount() { return environmentNumber("CORVID_SEEDS", 2000); }

// Tries one case per seed, one or more, from CORVID_SEED on, until one fails.
template <class Case>
void forEachSeed(unsigned count, const Case& tryCase) {
  const unsigned first = environmentNumber("CORVID_SEED", 1);
  for (unsigned seed = first; seed < first + std::max(count, 1U); ++seed) {
    SCOPED_TRACE("CORVID_SEEDS=1 CORVID_SEED=" + std::to_string(seed));
    Draw draw(seed);
    EXPECT_NO_THROW(tryCase(draw));
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace corvid
