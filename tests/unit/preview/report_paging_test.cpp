#include "basic/run_time_error.h"
#include "preview/report.h"
#include "report_bench.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

// Builds without paging unless a test asks for it.
class ReportText : public testing::Test {
 protected:
  ReportText() { report.SetLinesPerPage(kNoPaging); }

  std::wstring shown() {
    report.LoadText();
    return world.box.content;
  }
  int errorOfAdding(const std::wstring& text, int alignment) {
    return errorOf([&] { return report.Add(text, alignment), 0; });
  }

  ReportEnvironment world;
  Report report = world.report();
};

TEST_F(ReportText, LinesAreAlignedInTheWidth) {
  const struct {
    std::int16_t width;
    const wchar_t* text;
    int alignment;
    int error;
    const wchar_t* line;
    const char* reason;
  } kCases[] = {
      {8, L"abc", 0, 0, L"abc ", "left"},
      {2, L"abc", 0, 0, L"abc ", "left is never cut"},
      {8, L"abc", 1, 0, L"     abc ", "right"},
      {3, L"abc", 1, 0, L"abc ", "right, exactly as wide"},
      {2, L"abc", 1, 5, L"", "right, wider"},
      {8, L"abc", 2, 0, L"  abc ", "2.5 rounds to 2"},
      {10, L"abc", 2, 0, L"    abc ", "3.5 rounds to 4"},
      {4, L"abc", 2, 0, L"abc ", "0.5 rounds to 0"},
      {2, L"abc", 2, 0, L"ab ", "centred, cut"},
      {-1, L"abc", 2, 5, L"", "nothing can be cut to a negative width"},
      {8, L"abc", 3, 0, L" ", "unknown alignment"},
  };
  for (const auto& c : kCases) {
    ReportEnvironment here;
    Report fresh = here.report();
    fresh.SetReportWidth(c.width);
    fresh.SetLinesPerPage(kNoPaging);
    EXPECT_EQ(errorOf([&] { return fresh.Add(c.text, c.alignment), 0; }), c.error) << c.reason;
    fresh.LoadText();
    EXPECT_EQ(here.box.content, c.error == 0 ? c.line + std::wstring(L"\r\n") : L"") << c.reason;
  }
}

TEST_F(ReportText, FullPageIsBrokenInFrontOfTheNextLine) {
  report.SetReportWidth(3);
  report.SetLinesPerPage(10);
  report.SetNumeroPagina(7);
  std::wstring expected;
  for (int i = 1; i <= 8; ++i) {
    report.Add(L"x", 0);
    expected += L"x \r\n";
  }
  EXPECT_EQ(report.Linea(), 9);
  EXPECT_EQ(report.Pagina(), 7);
  report.Add(L"y", 0);
  EXPECT_EQ(report.Linea(), 2);
  EXPECT_EQ(report.Pagina(), 8);
  EXPECT_EQ(report.LineasPagina(), 9);
  EXPECT_EQ(shown(), expected + L"_____\r\ny \r\n");
}

TEST_F(ReportText, LongReportIsAddedToAndPrintedUnseen) {
  constexpr std::size_t kLines = 100'000;
  report.SetPrintFontSize(9);
  for (std::size_t i = 0; i < kLines; ++i) report.Add(L"x", 0);
  EXPECT_EQ(report.Linea(), 1) << "without paging it never advances";
  EXPECT_EQ(report.Pagina(), 1);
  world.box.setText(L"untouched");
  EXPECT_EQ(report.print(), PrintEnd::Printed);
  EXPECT_FALSE(report.loaded());
  EXPECT_EQ(world.box.content, L"untouched");
  EXPECT_EQ(world.printer.pages.front().size(), 1 + kLines);
  EXPECT_EQ(report.text().size(), 4 * kLines);
}

TEST_F(ReportText, ShowingAgainKeepsTextAndCaretUnlessLinesCame) {
  report.Add(L"abcdef", 0);
  shown();
  world.box.select(4, 0);
  const std::wstring first = world.box.content;
  EXPECT_EQ(shown(), first);
  EXPECT_EQ(world.box.start, 4);
  report.Add(L"g", 0);
  EXPECT_EQ(shown(), first + L"\r\ng ");
  EXPECT_EQ(world.box.start, 1);
  EXPECT_EQ(world.box.selected, 0);
  world.box.setText(L"");
  EXPECT_EQ(shown(), first) << "an emptied text box is filled from what was buffered";
}

TEST_F(ReportText, CountersOverflowAfterWhatCameBefore) {
  report.SetNumeroPagina(32767);
  EXPECT_EQ(errorOf([&] { return report.PageBreak(), 0; }), 6);
  EXPECT_EQ(report.Pagina(), 32767);
  EXPECT_EQ(shown(), std::wstring(122, L'_') + L"\r\n") << "the line itself was written";
  report.SetPrintFontSize(9);
  report.SetReportWidth(32766);
  EXPECT_EQ(errorOf([&] { return report.PageBreak(), 0; }), 6);
  report.SetReportWidth(-3);
  EXPECT_EQ(errorOf([&] { return report.PageBreak(), 0; }), 5);
  report.SetLinesPerPage(-32768);
  EXPECT_EQ(errorOf([&] { return report.LineasPagina(); }), 6);
  EXPECT_EQ(errorOfAdding(L"x", 0), 6);
}

TEST_F(ReportText, NegativeMarginIsRefusedAndChangesNothing) {
  report.setLeftMargin(4);
  try {
    report.setLeftMargin(-1);
    FAIL() << "no error";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80040005U);
    EXPECT_EQ(error.source(), L"lfQuickView::SetLeftMargin");
    EXPECT_EQ(error.description(), L"Argumento inválido");
  }
  EXPECT_EQ(report.LeftMargin(), 4);
}

}  // namespace
}  // namespace corvid
