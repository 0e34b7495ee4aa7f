// What is owned is given back once.
#include "windows/owned_handle.h"

#include <gtest/gtest.h>

#include <vector>

namespace corvid {
namespace {

std::vector<int> released;

struct Numbers {
  using Type = int;
  static constexpr Type none() { return -1; }
  static void release(Type number) { released.push_back(number); }
};

TEST(Ownership, IsGivenBackOnceHoweverItMoves) {
  released.clear();
  {
    Owned<Numbers> first(1);
    Owned<Numbers> second(std::move(first));
    Owned<Numbers> third(3);
    third = std::move(second);
    EXPECT_EQ(third.get(), 1);
    Owned<Numbers> empty;
    EXPECT_FALSE(empty);
    *empty.put() = 5;
    EXPECT_TRUE(empty);
  }
  EXPECT_EQ(released, (std::vector<int>{5, 1, 3}));
}

}  // namespace
}  // namespace corvid
