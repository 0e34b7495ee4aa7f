#include "basic/text_lines.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(TextLines, CenterCutPadsInFrontOnlyAndRoundsDown) {
  EXPECT_EQ(CenterCut(L"abc", 8), L"  abc");
  EXPECT_EQ(CenterCut(L"abc", 7), L"  abc");
  EXPECT_EQ(CenterCut(L"abc", 4), L"abc");
  EXPECT_EQ(CenterCut(L"abc", 3), L"abc");
  EXPECT_EQ(CenterCut(L"abcdef", 3), L"abc");
}

}  // namespace
}  // namespace corvid
