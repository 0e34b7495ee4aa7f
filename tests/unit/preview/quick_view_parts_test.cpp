// Where the window's controls stand, what its margin entry means, and which line was clicked.
#include "preview/clicked_line.h"
#include "preview/margin_entry.h"
#include "preview/quick_view_controls.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace corvid {
namespace {

TEST(QuickViewControls, ControlsFollowTheWindowsEdges) {
  const QuickViewLayout layout = layoutQuickView(15000, 9000.5);
  const struct {
    Control control;
    double left;
    double top;
  } kCases[] = {
      {Control::cbGuardar, 7980, 7920},
      {Control::Command1, 9690, 7920},
      {Control::cbImprimir, 11400, 7920},
      {Control::cbCerrar, 13110, 7920},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(layout.of(c.control).left, c.left);
    EXPECT_EQ(layout.of(c.control).top, c.top) << "7920.5 rounds to the even row";
  }
  for (const Control same :
       {Control::cbPrinterFonts, Control::imgFontGrow, Control::imgFontShrink}) {
    EXPECT_EQ(layout.of(same).top, 7920);
    EXPECT_EQ(layout.of(same).left, layoutQuickView(0, 0).of(same).left) << "stays at the left";
  }
  EXPECT_EQ(layoutQuickView(15000, 9001.5).of(Control::cbCerrar).top, 7922) << "7921.5 too";
  EXPECT_EQ(layout.of(Control::Text1).width, 14535);
  EXPECT_EQ(layout.of(Control::Text1).height, 7725.5);
  EXPECT_EQ(layout.of(Control::Label1).top, 8160.5);
  EXPECT_EQ(layout.of(Control::Text2).top, 8130.5);
  EXPECT_EQ(layout.of(Control::UpDown1).height, layout.of(Control::Text2).height);
  EXPECT_EQ(layout.of(Control::UpDown1).top, 8130.5);
}

TEST(ClickedLine, LineAndColumnAroundTheCaret) {
  const struct {
    const wchar_t* text;
    std::int32_t caret;
    std::optional<ClickedLine> clicked;
    const char* reason;
  } kCases[] = {
      {L"ab cd \r\nef \r\n", 4, ClickedLine{L"ab cd ", 4}, "inside the first line, blanks and all"},
      {L"ab cd \r\nef \r\n", 0, ClickedLine{L"ab cd ", 0}, "in front of the text"},
      {L"ab cd \r\nef \r\n", 6, ClickedLine{L"ab cd ", 6}, "at the end of a line"},
      {L"ab cd \r\nef \r\n", 9, ClickedLine{L"ef ", 1}, "inside the second line"},
      {L"ab cd \r\nef \r\n", 8, std::nullopt, "in front of a line, right behind its break"},
      {L"ab cd \r\nef \r\n", 7, std::nullopt, "between CR and LF"},
      {L"ab cd \r\nef \r\n", 13, std::nullopt, "at the end of the text"},
      {L"ab\tcd \r\n", 4, ClickedLine{L"cd ", 1}, "any control character ends the line"},
      {L"ab\x1f", 1, ClickedLine{L"ab", 1}, "31 is the last control character"},
      {L"ab cd ", 2, ClickedLine{L"ab cd", 2}, "the text's last character belongs to no line"},
      {L"\r\nab", 0, ClickedLine{L"", 0}, "an empty first line"},
      {L"", 0, ClickedLine{L"", 0}, "an empty text has an empty line"},
  };
  for (const auto& c : kCases) EXPECT_EQ(clickedLine(c.text, c.caret), c.clicked) << c.reason;
}

TEST(MarginEntry, WhatMayBeEnteredAndWhatItMeans) {
  const struct {
    const wchar_t* entry;
    bool valid;
    const wchar_t* trimmed;
    const wchar_t* whole;
    int margin;
    const char* reason;
  } kCases[] = {
      {L"90", true, L"90", L"90", 90, "digits"},
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
