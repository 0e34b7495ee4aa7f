// Fails a test behind which the heaps of the system and of the C run-time are damaged. With the
// image option GlobalFlag=0x70 the system marks the ends of each block, so that damage shows.
#include <gtest/gtest.h>
#include <malloc.h>
#include <windows.h>

namespace {

class HeapWatch : public testing::EmptyTestEventListener {
 public:
  void OnTestEnd(const testing::TestInfo&) override {
    EXPECT_NE(HeapValidate(GetProcessHeap(), 0, nullptr), FALSE);
    EXPECT_EQ(_heapchk(), _HEAPOK);
  }
};

[[maybe_unused]] const bool isWatching = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new HeapWatch);
  return true;
}();

}  // namespace
