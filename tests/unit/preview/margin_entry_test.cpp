#include "preview/margin_entry.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

TEST(MarginEntry, WhatMayBeEnteredAndWhatItMeans) {
  const struct {
    const wchar_t* entry;
    bool valid;
    const wchar_t* trimmed;
    const wchar_t* whole;
    int margin;
    const char* reason;
  } kCases[] = {
      {L"12", true, L"12", L"12", 12, "digits"},
      {L"12.5", true, L"12.5", L"12", 12, "a half goes to the even margin"},
      {L"13.5", true, L"13.5", L"13", 14, "both ways"},
      {L"12,5", true, L"12,5", L"12", 12, "a comma ends the number"},
      {L"-3", true, L"-3", L"-3", 0, "a negative entry, but no negative margin"},
      {L"-3.5", true, L"-3.5", L"-4", 0, "toward minus infinity"},
      {L"1-2", false, L"1-2", L"1", 1, "a minus inside"},
      {L"--2", false, L"--2", L"0", 0, "two in front"},
      {L"", true, L"", L"0", 0, "empty is accepted as it stands"},
      {L"  7 ", true, L"7", L"7", 7, "blanks around"},
      {L"   ", true, L"", L"0", 0, "only blanks"},
      {L"-", true, L"-", L"0", 0, "a minus alone"},
      {L"1.2.3", true, L"1.2.3", L"1", 1, "points are not counted"},
      {L"1234567", true, L"1234567", L"1234567", 0, "not grouped; beyond a margin's 16 bits"},
      {L"1E999", false, L"1E999", L"0", 0, "beyond a double"},
  };
  for (const auto& c : kCases) {
    std::wstring entry = c.entry;
    EXPECT_EQ(IsValidNumber(entry), c.valid) << c.reason;
    EXPECT_EQ(entry, c.trimmed) << c.reason;
    EXPECT_EQ(wholePart(c.entry), c.whole) << c.reason;
    EXPECT_EQ(marginOf(c.entry), c.margin) << c.reason;
  }
}

TEST(MarginEntry, StepsStayWithinTheMargins) {
  const struct {
    const wchar_t* entry;
    int steps;
    const wchar_t* result;
  } kCases[] = {
      {L"4", 1, L"5"},      {L"0", -1, L"0"},        {L"1", -5, L"0"},
      {L"-3", 1, L"0"},     {L"12.9", 1, L"13"},     {L"x", 1, L"1"},
      {L"999", 1, L"1000"}, {L"32767", 1, L"32767"}, {L"1E99", -1, L"32766"},
  };
  for (const auto& c : kCases) EXPECT_EQ(steppedMargin(c.entry, c.steps), c.result) << c.entry;
}

}  // namespace
}  // namespace corvid
