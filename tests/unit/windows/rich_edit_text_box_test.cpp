// The rich edit control behind the text box's one way of counting.
#include "windows/rich_edit_text_box.h"

#include "desktop.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <utility>

namespace corvid {
namespace {

constexpr UINT_PTR kHandOverTimer = 0xC0;  // the box's own

class TextBox : public testing::Test {
 protected:
  void SetUp() override {
    control_ = CreateWindowExW(0, richEditClass(), L"",
                               WS_CHILD | WS_HSCROLL | ES_MULTILINE | ES_AUTOHSCROLL | ES_NOHIDESEL,
                               0, 0, 200, 100, host_.get(), nullptr, nullptr, nullptr);
    ASSERT_NE(control_, nullptr);
    box_.attach(control_);
  }

  // Pixels from the left edge.
  LONG placeOf(LONG heldPosition) {
    POINTL place{};
    SendMessageW(control_, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), heldPosition);
    return place.x;
  }

  HostWindow host_;
  HWND control_ = nullptr;
  RichEditTextBox box_{[] { FAIL() << "there is a control"; }};
};

TEST_F(TextBox, CountsLineEndsAsTwo) {
  box_.setText(L"abc\r\nde\r\n\r\nf");
  EXPECT_EQ(box_.text(), L"abc\r\nde\r\n\r\nf");
  EXPECT_EQ(box_.length(), 12);
  EXPECT_EQ(std::pair(box_.selectionStart(), box_.selectionLength()), std::pair(0, 0));
  struct Case {
    std::int32_t start;
    std::int32_t length;
    std::int32_t expectedStart;
    std::int32_t expectedLength;
    const char* reason;
  };
  const Case cases[] = {
      {0, 0, 0, 0, "in front"},          {5, 2, 5, 2, "the second line"},
      {2, 4, 2, 4, "over a line end"},   {4, 0, 3, 0, "between CR and LF is in front of both"},
      {9, 2, 9, 2, "a line end alone"},  {11, 1, 11, 1, "the last character"},
      {12, 0, 12, 0, "behind it"},       {0, 12, 0, 12, "everything"},
      {50, 3, 12, 0, "beyond the text"}, {5, 2147483647, 5, 7, "a length beyond the text"},
      {-3, -1, 0, 0, "below the text"},
  };
  for (const Case& c : cases) {
    box_.select(c.start, c.length);
    EXPECT_EQ(box_.selectionStart(), c.expectedStart) << c.reason;
    EXPECT_EQ(box_.selectionLength(), c.expectedLength) << c.reason;
  }
}

TEST_F(TextBox, AppendsAtTheEndThoughLocked) {
  box_.setLocked(true);
  box_.setText(L"one");
  box_.select(1, 1);
  box_.append(L"\r\ntwo");
  EXPECT_EQ(box_.text(), L"one\r\ntwo");
  EXPECT_EQ(box_.selectionStart(), 8);
  EXPECT_EQ(box_.selectionLength(), 0);
  EXPECT_NE(GetWindowLongPtrW(control_, GWL_STYLE) & ES_READONLY, 0);
}

TEST_F(TextBox, WideLineDoesNotTakeTheOthersOutOfView) {
  ShowWindow(control_, SW_SHOW);
  box_.append(L"short\r\n");
  box_.append(std::wstring(122, L'_'));
  POINT place{1, 1};
  SendMessageW(control_, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&place));
  EXPECT_EQ(place.x, 0);
}

TEST_F(TextBox, OddTextsStayWhole) {
  const std::wstring longLine(100000, L'x');
  struct Case {
    std::wstring text;
    std::wstring expected;
    const char* reason;
  };
  const Case cases[] = {
      {std::wstring(L"a\0b", 3), L"a b", "a NUL does not end the text"},
      {L"{\\rtf1 abc}", L"{\\rtf1 abc}", "no format is read into it"},
      {longLine + L"\r\n" + longLine, longLine + L"\r\n" + longLine, "long lines are not broken"},
      {L"\t\x1B[1m", L"\t\x1B[1m", "control characters"},
  };
  for (const Case& c : cases) {
    box_.setText(c.text);
    EXPECT_EQ(box_.text(), c.expected) << c.reason;
    EXPECT_EQ(SendMessageW(control_, EM_GETLINECOUNT, 0, 0), c.text.starts_with(L'x') ? 2 : 1);
    box_.setText(L"");
    box_.append(c.text);
    EXPECT_EQ(box_.text(), c.expected) << c.reason << ", appended";
  }
}

TEST_F(TextBox, FindsWhatStandsBehindAPlaceAndNothingElse) {
  box_.setText(L"abc\r\nabc");
  EXPECT_TRUE(box_.find(L"ABC", 0));
  EXPECT_EQ(box_.selectionStart(), 0);
  EXPECT_TRUE(box_.find(L"abc", 1));
  EXPECT_EQ(std::pair(box_.selectionStart(), box_.selectionLength()), std::pair(5, 3));
  EXPECT_FALSE(box_.find(L"abc", 6));
  EXPECT_FALSE(box_.find(L"", 0));
  EXPECT_EQ(box_.selectionStart(), 5) << "stays where it was";
}

// Else a pasted picture, a Chinese character's own font or a text of 64 KB would come in its way.
TEST_F(TextBox, HoldsPlainTextOfAnyLengthInOneFont) {
  const auto answer = [this](UINT message) { return SendMessageW(control_, message, 0, 0); };
  EXPECT_NE(answer(EM_GETTEXTMODE) & TM_PLAINTEXT, 0);
  EXPECT_EQ(answer(EM_GETLANGOPTIONS), 0);
  EXPECT_EQ(answer(EM_GETLIMITTEXT), 2147483646);
  EXPECT_EQ(formatOf(control_).dwEffects & (CFE_BOLD | CFE_ITALIC), 0U);
}

TEST_F(TextBox, FontAndTabsAreOfTheWholeText) {
  box_.setText(L"abc");
  box_.select(1, 2);
  box_.setFont(L"Courier New", 11.5);
  EXPECT_EQ(std::pair(box_.selectionStart(), box_.selectionLength()), std::pair(1, 2));
  box_.setText(L"\tother\r\n1234567\tx");
  box_.append(L"\r\n12345678\tx");
  box_.select(7, 1);
  const CHARFORMATW format = formatOf(control_);
  EXPECT_EQ(format.yHeight, 230) << "twips";
  EXPECT_STREQ(format.szFaceName, L"Courier New");
  EXPECT_EQ(format.dwEffects & CFE_BOLD, 0U);
  const LONG column = placeOf(8) - placeOf(7);  // of the second line, which begins at 7
  EXPECT_NEAR(placeOf(1), placeOf(0) + 8 * column, 2);
  EXPECT_NEAR(placeOf(15), placeOf(7) + 8 * column, 2);
  EXPECT_NEAR(placeOf(26), placeOf(17) + 16 * column, 2);
  box_.setFont(L"Courier New", 20);
  EXPECT_NEAR(placeOf(26), placeOf(17) + 16 * (placeOf(8) - placeOf(7)), 2);
  box_.setFont(L"Liberation Sans", 18);
  box_.setText(L"nnnnnnnn\tx\r\n\tx");
  const LONG tab = placeOf(12) - placeOf(11);  // in the second line, which begins with it
  EXPECT_NEAR(placeOf(8) - placeOf(0), tab, 2) << "columns of its letters";
  EXPECT_NEAR(placeOf(9) - placeOf(0), 2 * tab, 2);
}

TEST_F(TextBox, LinesAreHandedOverTogetherAndBeforeAnyoneLooks) {
  const UINT looking[] = {EM_GETSEL,    EM_GETLINECOUNT, EM_EXLINEFROMCHAR, WM_GETTEXTLENGTH,
                          WM_COPY,      WM_KEYDOWN,      WM_CHAR,           WM_LBUTTONDOWN,
                          WM_LBUTTONUP, WM_RBUTTONDOWN,  WM_MOUSEWHEEL,     WM_VSCROLL};
  const UINT others[] = {WM_MOUSEMOVE, WM_NCHITTEST, WM_GETDLGCODE, WM_SETCURSOR, WM_TIMER};
  int handOvers = box_.handOvers();
  for (const UINT message : looking) {
    for (int i = 0; i < 10; ++i) box_.append(L"\r\nb");
    for (const UINT other : others) SendMessageW(control_, other, 0, 0);
    EXPECT_EQ(box_.handOvers(), handOvers) << "nobody looked";
    SendMessageW(control_, message, 0, 0);
    EXPECT_EQ(box_.handOvers(), ++handOvers) << message;
  }
  EXPECT_EQ(KillTimer(control_, kHandOverTimer), FALSE) << "nothing is due";
  box_.append(L"\r\nlast");
  EXPECT_TRUE(box_.find(L"last", 0));
  EXPECT_EQ(box_.handOvers(), handOvers + 1);
}

TEST_F(TextBox, FreshOnePaintsAtOnce) {
  ShowWindow(control_, SW_SHOW);
  const int before = box_.handOvers();
  box_.append(L"line");
  box_.refresh();
  EXPECT_EQ(box_.handOvers(), before + 1);
  EXPECT_EQ(GetUpdateRect(control_, nullptr, FALSE), FALSE);
  box_.append(L"line");
  EXPECT_EQ(SendMessageW(control_, WM_GETTEXTLENGTH, 0, 0), 8);
  EXPECT_NE(GetUpdateRect(control_, nullptr, FALSE), FALSE) << "once it is the system's turn";
}

TEST_F(TextBox, HostThatRunsItsMessagesAfterEachLineSeesThemSoonAndCheaply) {
  ShowWindow(control_, SW_SHOW);
  box_.setText(L"");
  const int before = box_.handOvers();
  const ULONGLONG start = GetTickCount64();
  int lines = 0;
  while (GetTickCount64() - start < 600) {
    box_.append(L"line\r\n");
    ++lines;
    runPendingMessages();
  }
  EXPECT_GE(box_.handOvers() - before, 2) << "the timer's";
  EXPECT_LE(box_.handOvers() - before, 7) << "ten a second";
  EXPECT_GT(lines, 50);
  EXPECT_EQ(box_.length(), lines * 6);
}

}  // namespace
}  // namespace corvid
