#include "basic/string_buffer.h"

#include "support/error_of.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>

namespace corvid {
namespace {

constexpr std::size_t kChunk = 65536;
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
  EXPECT_EQ(buffer.Value(), std::wstring(4 * kChunk + 1, L'a'));
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

  // Its store is three characters long, and its capacity a chunk's.
  buffer.setValue(L"a text longer than the store");
  EXPECT_EQ(buffer.Value(), L"a text longer than the store");
  EXPECT_EQ(storeLength(buffer, L"a text longer than the store"), kChunk);
  buffer.setValue(std::wstring(kChunk + 1, L'a'));
  EXPECT_EQ(buffer.Value(), std::wstring(kChunk + 1, L'a'));
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
  EXPECT_EQ(buffer.Value(), L"new" + std::wstring(kChunk, L'b') + L"aaaaaaa");
}

}  // namespace
}  // namespace corvid
