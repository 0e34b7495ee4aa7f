// Texts that are put together, and the blocks of characters below them.
#include "basic/string_buffer.h"

#include "basic/character_store.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <functional>
#include <random>
#include <string>

namespace corvid {
namespace {

constexpr std::size_t kChunk = 65536;  // and of the store's blocks
const std::wstring kNul(1, L'\0');

CStringBuffer holding(const std::wstring& text) {
  CStringBuffer buffer;
  buffer.Append(text);
  return buffer;
}

// A store of NULs alone has its whole length as its value.
std::size_t storeLength(CStringBuffer buffer, const std::wstring& content) {
  buffer.Replace(content, std::wstring(content.size(), L'\0'));
  return buffer.Value().size();
}

TEST(StringBuffer, StoreGrowsByWholeChunksAndNotBeforeItIsFull) {
  CStringBuffer buffer;
  EXPECT_EQ(buffer.Value(), L"");
  EXPECT_EQ(storeLength(buffer, L"a"), kChunk);
  buffer.Append(std::wstring(kChunk - 1, L'a'));
  buffer.Append(L"a");
  EXPECT_EQ(storeLength(buffer, L"a"), kChunk);
  buffer.Append(L"a");
  EXPECT_EQ(storeLength(buffer, L"a"), 2 * kChunk);
  buffer.Append(std::wstring(3 * kChunk, L'a'));
  EXPECT_EQ(storeLength(buffer, L"a"), 5 * kChunk) << "several chunks in one step";
  buffer.Append(std::wstring(2 * kChunk - 1, L'a'));
  EXPECT_EQ(storeLength(buffer, L"a"), 6 * kChunk) << "filled to its last character";
  EXPECT_EQ(buffer.Value(), std::wstring(6 * kChunk, L'a'));
}

TEST(StringBuffer, InsertMovesTheRestAndRefusesPositionsOutsideTheText) {
  const struct {
    std::int32_t index;
    int error;
    std::wstring inserted;
    std::wstring result;
    const char* reason;
  } kCases[] = {
      {1, 0, L"xy", L"xyabc", "in front"},
      {2, 0, L"xyz", L"axyzbc", "more characters than the rest has"},
      {3, 0, L"x", L"abxc", "before the last"},
      {4, 0, L"x", L"abcx", "right behind the text it appends"},
      {5, 5, L"x", L"abc", "a gap"},
      {0, 5, L"x", L"abc", "positions count from 1"},
      {-1, 5, L"x", L"abc", "before the text"},
      {INT_MIN, 6, L"x", L"abc", "so far before it that the rest does not fit 32 bits"},
      {2, 0, L"", L"abc", "nothing to insert"},
  };
  for (const auto& item : kCases) {
    CStringBuffer buffer = holding(L"abc");
    EXPECT_EQ(errorOf([&] { return buffer.Insert(item.index, item.inserted), 0; }), item.error)
        << item.reason;
    EXPECT_EQ(buffer.Value(), item.result) << item.reason;
  }
  CStringBuffer full = holding(std::wstring(kChunk, L'a'));
  full.Insert(2, L"b");
  const std::wstring text = L"ab" + std::wstring(kChunk - 1, L'a');
  EXPECT_EQ(full.Value(), text);
  EXPECT_EQ(storeLength(full, text), 2 * kChunk) << "the store grows for the moved rest";
}

TEST(StringBuffer, RemoveCutsEverythingBehindWhenItReachesTheLastCharacter) {
  const struct {
    std::int32_t index;
    std::int32_t length;
    std::wstring result;
    std::int32_t lengthAfter;
    int error;
    const char* reason;
  } kCases[] = {
      {1, 3, L"def", 3, 0, "in front"},
      {2, 2, L"adef", 2, 0, "in the middle"},
      {4, 2, L"abc", 3, 0, "one character would survive: it goes too"},
      {4, 3, L"abc", 3, 0, "exactly to the end"},
      {2, 100, L"a", 5, 0, "beyond the end"},
      {1, 6, L"", 6, 0, "everything"},
      {7, 0, L"abcdef", 0, 0, "nothing behind the text"},
      {3, 0, L"abcdef", 0, 0, "no characters"},
      {0, 2, L"abcdef", 2, 5, "positions count from 1"},
      {0, 9, L"abcdef", 7, 5, "from before the text to its end"},
      {5, -2, L"abcdef", -2, 5, "a negative length"},
      {2, -2, L"abcdef", -2, 5, "reaches before position 1"},
      {9, 0, L"abcdef", -2, 5, "behind the text"},
      {INT_MAX, 1, L"abcdef", 1, 6, "position and length do not fit 32 bits"},
  };
  for (const auto& item : kCases) {
    CStringBuffer buffer = holding(L"abcdef");
    std::int32_t length = item.length;
    EXPECT_EQ(errorOf([&] { return buffer.Remove(item.index, length), 0; }), item.error)
        << item.reason;
    EXPECT_EQ(length, item.lengthAfter) << item.reason;
    if (item.length >= 0) {
      EXPECT_EQ(buffer.Value(), item.result) << item.reason;
    }
  }
}

TEST(StringBuffer, RemoveMovesCharactersFromBehindTheTextAlong) {
  CStringBuffer buffer = holding(L"abcdefghij");
  buffer.setValue(L"12345");  // leaves fghij after the text
  std::int32_t length = 2;
  buffer.Remove(1, length);
  EXPECT_EQ(buffer.Value(), L"345");
  buffer.Replace(kNul + kNul + L"h", L"-");
  EXPECT_EQ(buffer.Value(), L"345-ghij");
}

TEST(StringBuffer, InsertMovesNothingFromBehindTheText) {
  CStringBuffer buffer = holding(L"abcdefghij");
  buffer.setValue(L"12345");
  buffer.Insert(2, L"x");
  buffer.Replace(L"1x2345g", L"-");
  EXPECT_EQ(buffer.Value(), L"-hij");
}

TEST(StringBuffer, RemovedPlacesAreNulAgain) {
  CStringBuffer buffer = holding(L"abcdef");
  std::int32_t length = 3;
  buffer.Remove(4, length);
  buffer.Replace(L"abc", L"xyz");
  EXPECT_EQ(buffer.Value(), L"xyz") << "the first NUL stands right behind";
}

TEST(StringBuffer, ReplaceWorksOnTheWholeStoreAndEndsTheTextAtTheFirstNul) {
  const struct {
    std::wstring text;
    std::wstring old;
    std::wstring replacement;
    std::wstring result;
    const char* reason;
  } kCases[] = {
      {L"one two one", L"one", L"three", L"three two three", "every place"},
      {L"abcdef", L"c", kNul, L"ab", "a NUL ends the text"},
      {L"", L"a", L"b", std::wstring(kChunk, L'\0'), "no text counts as a full store"},
      {std::wstring(kChunk - 1, L'a'), L"b", L"c", std::wstring(kChunk - 1, L'a'),
       "one NUL is left"},
      {L"abc", L"", L"x", L"abc", "an empty text stands nowhere"},
  };
  for (const auto& item : kCases) {
    CStringBuffer buffer = holding(item.text);
    buffer.Replace(item.old, item.replacement);
    EXPECT_EQ(buffer.Value(), item.result) << item.reason;
    if (item.text.empty()) continue;
    buffer.Append(L"!");
    EXPECT_EQ(buffer.Value(), item.result + L"!") << item.reason;
  }
}

TEST(StringBuffer, StoreThatAReplaceLengthenedIsFilledBeforeItGrows) {
  CStringBuffer buffer = holding(L"abc");
  buffer.Replace(L"c", std::wstring(kChunk, L'x'));
  buffer.Append(std::wstring(kChunk - 3, L'y'));
  const std::wstring text = L"ab" + std::wstring(kChunk, L'x') + std::wstring(kChunk - 3, L'y');
  EXPECT_EQ(storeLength(buffer, text), 2 * kChunk - 1);
}

TEST(StringBuffer, WithoutAnyNulTheTextHasNoEndUntilItIsSetAnew) {
  CStringBuffer buffer = holding(L"abc");
  buffer.Replace(kNul, L"");
  EXPECT_EQ(errorOf([&] { return buffer.Value(); }), 5);
  EXPECT_EQ(errorOf([&] { return buffer.Append(L"x"), 0; }), 5);
  std::int32_t length = 5;
  EXPECT_EQ(errorOf([&] { return buffer.Remove(1, length), 0; }), 5);
  EXPECT_EQ(length, -1) << "what is left of a text that ends before its beginning";

  // Its store is three characters long, and its capacity a chunk's.
  buffer.setValue(L"a text longer than the store");
  EXPECT_EQ(buffer.Value(), L"a text longer than the store");
  EXPECT_EQ(storeLength(buffer, L"a text longer than the store"), kChunk);
  buffer.setValue(std::wstring(kChunk + 1, L'a'));
  EXPECT_EQ(buffer.Value(), std::wstring(kChunk + 1, L'a'));
}

TEST(StringBuffer, ShortenedStoreGrowsToItsCapacityWithTheFirstCharacterBehindIt) {
  std::int32_t four = 4;
  const struct {
    std::wstring value;
    std::function<void(CStringBuffer&)> change;
    std::wstring result;
    std::size_t length;
  } kCases[] = {
      {L"1234567890", [](auto&) {}, L"1234567890", 10},
      {L"12", [](auto& buffer) { buffer.Append(L"345"); }, L"12345", 10},
      {L"123456789", [](auto& buffer) { buffer.Append(L"ab"); }, L"123456789ab", kChunk},
      {L"1234567890", [](auto& buffer) { buffer.Insert(9, L"abc"); }, L"12345678abc90", kChunk},
      {L"1234567890", [&](auto& buffer) { buffer.Remove(1, four); }, L"567890", 10},
  };
  for (const auto& item : kCases) {
    CStringBuffer buffer = holding(L"abcdefghij");
    buffer.Replace(kNul, L"");
    buffer.setValue(item.value);
    item.change(buffer);
    EXPECT_EQ(buffer.Value(), item.result);
    buffer.Replace(L"cdefghij", std::wstring(8, L'\0'));
    EXPECT_EQ(storeLength(buffer, item.result), item.length) << item.result;
  }
}

TEST(StringBuffer, ShortenedStoreIsPaddedBehindWhatItHolds) {
  CStringBuffer buffer = holding(L"abcdef");
  buffer.Replace(kNul, L"");
  buffer.setValue(L"12");  // fits the short store
  buffer.Replace(L"cdef", kNul + L"cdef");
  EXPECT_EQ(buffer.Value(), L"12");
  buffer.Append(std::wstring(10, L'x'));
  EXPECT_EQ(buffer.Value(), L"12xxxxxxxxxx");
}

TEST(StringBuffer, NewValueKeepsAGrownStoreAndWhatLiesBehindTheText) {
  CStringBuffer buffer = holding(std::wstring(kChunk + 10, L'a'));
  buffer.setValue(L"new");
  EXPECT_EQ(buffer.Value(), L"new");
  buffer.Append(std::wstring(kChunk, L'b'));
  EXPECT_EQ(buffer.Value(), L"new" + std::wstring(kChunk, L'b'));
  buffer.Replace(L"x", L"y");
  const std::wstring whole = L"new" + std::wstring(kChunk, L'b') + L"aaaaaaa";
  EXPECT_EQ(buffer.Value(), whole);
  EXPECT_EQ(storeLength(buffer, whole), 3 * kChunk) << "grown by what the new text asked for";
}

// A text in which neighbours differ, so that a character in the wrong place is seen.
std::wstring ramp(std::size_t length) {
  std::wstring text;
  for (std::size_t i = 0; i < length; ++i) text += static_cast<wchar_t>(33 + (i % 89));
  return text;
}

TEST(CharacterStore, GivesBackWhatWasWrittenAcrossBlocks) {
  const std::wstring text = ramp(3 * kChunk + 5);
  CharacterStore store;
  for (std::size_t i = 0; i < text.size(); i += 1000) store.write(i, text.substr(i, 1000));
  EXPECT_EQ(store.size(), text.size());
  EXPECT_EQ(store.read(0, text.size() + 1), text);
  for (const std::size_t start : {kChunk - 2, kChunk, kChunk + 1, 3 * kChunk + 3}) {
    EXPECT_EQ(store.read(start, 4), text.substr(start, 4)) << start;
  }
  store.write(kChunk - 2, L"abcd");
  EXPECT_EQ(store.read(kChunk - 3, 6), text[kChunk - 3] + std::wstring(L"abcd") + text[kChunk + 2]);
}

TEST(CharacterStore, HasNulsWhereNothingWasWritten) {
  CharacterStore store;
  store.grow(2 * kChunk);
  store.grow(1);
  EXPECT_EQ(store.size(), 2 * kChunk);
  EXPECT_EQ(store.read(2 * kChunk - 1, 5), std::wstring(1, L'\0')) << "cut at its end";
  EXPECT_EQ(store.read(2 * kChunk + 1, 5), L"") << "behind it";
  store.write(kChunk + 1, L"x");
  EXPECT_EQ(store.read(kChunk - 1, 4), std::wstring(L"\0\0x\0", 4));
  EXPECT_EQ(store.size(), 2 * kChunk);
}

TEST(CharacterStore, AssignedTextLeavesNothingOfTheOldOneBehind) {
  CharacterStore store;
  store.write(0, ramp(2 * kChunk));
  store.assign(L"ab");
  EXPECT_EQ(store.size(), 2U);
  store.grow(kChunk + 1);
  EXPECT_EQ(store.read(0, kChunk + 1), L"ab" + std::wstring(kChunk - 1, L'\0'));
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
