// Characters across the borders of blocks, and NULs that nobody wrote.
#include "basic/character_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace corvid {
namespace {

constexpr std::size_t kBlock = 65536;

// A text in which neighbours differ, so that a character in the wrong place is seen.
std::wstring ramp(std::size_t length) {
  std::wstring text;
  for (std::size_t i = 0; i < length; ++i) text += static_cast<wchar_t>(33 + (i % 89));
  return text;
}

TEST(CharacterStore, GivesBackWhatWasWrittenAcrossBlocks) {
  const std::wstring text = ramp(3 * kBlock + 5);
  CharacterStore store;
  for (std::size_t i = 0; i < text.size(); i += 1000) store.write(i, text.substr(i, 1000));
  EXPECT_EQ(store.size(), text.size());
  EXPECT_EQ(store.read(0, text.size() + 1), text);
  for (const std::size_t start : {kBlock - 2, kBlock, kBlock + 1, 3 * kBlock + 3}) {
    EXPECT_EQ(store.read(start, 4), text.substr(start, 4)) << start;
  }
  store.write(kBlock - 2, L"abcd");
  EXPECT_EQ(store.read(kBlock - 3, 6), text[kBlock - 3] + std::wstring(L"abcd") + text[kBlock + 2]);
}

TEST(CharacterStore, HasNulsWhereNothingWasWritten) {
  CharacterStore store;
  store.grow(2 * kBlock);
  store.grow(1);
  EXPECT_EQ(store.size(), 2 * kBlock);
  EXPECT_EQ(store.read(2 * kBlock - 1, 5), std::wstring(1, L'\0')) << "cut at its end";
  EXPECT_EQ(store.read(2 * kBlock + 1, 5), L"") << "behind it";
  store.write(kBlock + 1, L"x");
  EXPECT_EQ(store.read(kBlock - 1, 4), std::wstring(L"\0\0x\0", 4));
  EXPECT_EQ(store.size(), 2 * kBlock);
}

TEST(CharacterStore, AssignedTextLeavesNothingOfTheOldOneBehind) {
  CharacterStore store;
  store.write(0, ramp(2 * kBlock));
  store.assign(L"ab");
  EXPECT_EQ(store.size(), 2U);
  store.grow(kBlock + 1);
  EXPECT_EQ(store.read(0, kBlock + 1), L"ab" + std::wstring(kBlock - 1, L'\0'));
}

TEST(CharacterStore, CopiesAcrossBlocksAsInOneRow) {
  constexpr std::size_t kLength = 150'000;
  std::mt19937 random(7);
  for (int i = 0; i < 100; ++i) {
    std::wstring model(kLength, L'\0');
    for (std::size_t at = 0; at < kLength; ++at) model[at] = static_cast<wchar_t>(1 + at % 65521);
    CharacterStore store;
    store.write(0, model);
    store.grow(kLength + 10);
    const std::size_t from = random() % kLength;
    const std::size_t to = i % 2 == 0 ? random() % kLength : from + random() % 1000 - from % 500;
    const std::size_t count = random() % kLength;
    const std::wstring moved = (model + std::wstring(10, L'\0')).substr(from, count);
    model.resize(std::max(kLength + 10, to + moved.size()));
    model.replace(to, moved.size(), moved);
    store.copy(from, to, count);
    ASSERT_EQ(store.read(0, 2 * kLength), model) << from << " to " << to << ", " << count;
  }
}

}  // namespace
}  // namespace corvid
