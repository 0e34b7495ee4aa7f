// Counts what operator new has given, and lets it fail.
#pragma once

#include <cstddef>

namespace corvid {

// Of this program, which replaces operator new and operator delete. One thread.
struct Allocations {
  struct Live {
    std::ptrdiff_t blocks = 0;
    std::ptrdiff_t bytes = 0;
    bool operator==(const Live&) const = default;
  };
  // What was given and not taken back.
  [[nodiscard]] static Live live();

  // The nth allocation from now on throws std::bad_alloc, and no other one. Those of the system's
  // doubles do not count.
  static void failNth(int nth);
  // Ends that; true where it has failed.
  static bool repair();
};

}  // namespace corvid
