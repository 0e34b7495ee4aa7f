// How a report measures its printer, and what it prints there.
#include "basic/run_time_error.h"
#include "preview/report_metrics.h"
#include "report_bench.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace corvid {
namespace {

TEST(ReportMetrics, ScaleModesInInches) {
  const std::vector<std::pair<int, double>> cases = {
      {0, 0}, {1, 1.0 / 1440}, {2, 1.0 / 1440}, {3, 0}, {4, 120.0 / 1440},
      {5, 1}, {6, 1.0 / 25.4}, {7, 1.0 / 2.54}, {8, 0}, {-1, 0},
  };
  for (const auto& [mode, inches] : cases) {
    EXPECT_DOUBLE_EQ(ScaleToInches(static_cast<ScaleMode>(mode)), inches) << mode;
  }
}

TEST(ReportFitting, WidthFindsItsFontAndLines) {
  // 8 inches, of which 98 hundredths are 11289.6 twips; a letter takes 12 twips a point.
  const struct {
    std::int16_t width;
    std::vector<std::pair<const wchar_t*, const wchar_t*>> settings;
    double size;
    int linesPerPage;
    const char* reason;
  } kCases[] = {
      {120, {}, 7, 105, "126 letters fit at 7.466 points"},
      {40, {}, 14, 51, "46 letters fit at once"},
      {61, {}, 14, 51, "67 letters take 11256 twips"},
      {62, {}, 13.5, 53, "68 letters take 11424, within the width but not its 98 hundredths"},
      {40, {{L"MaxFontSize", L"10.3"}}, 10.3, 70, "70.4 lines round down"},
      {120, {{L"MaxFontSize", L"8.3"}}, 7.3, 101, "steps of half a point from any size"},
      {40, {{L"FontOffset", L"2.5"}}, 16, 44, "2.5 rounds to 2"},
      {120, {{L"FontOffset", L"-1"}}, 6, 123, "corrected after the fitting"},
      {40, {{L"FontFactor", L"0.5"}}, 7, 105, "scaled"},
      {40, {{L"FontOffset", L"1"}, {L"FontFactor", L"0.5"}}, 7.5, 98, "offset, then factor"},
      {40, {{L"FontFactor", L"1E39"}}, 14, 51, "no single keeps the default"},
  };
  for (const auto& c : kCases) {
    ReportEnvironment world;
    for (const auto& [key, value] : c.settings) world.set(key, value);
    Report report = world.report();
    EXPECT_TRUE(report.SetReportWidth(c.width)) << c.reason;
    EXPECT_DOUBLE_EQ(world.printer.size, c.size) << c.reason;
    EXPECT_EQ(report.LineasPagina() + 1, c.linesPerPage) << c.reason;
    EXPECT_EQ(world.printer.name, L"Courier New") << c.reason;
    EXPECT_FALSE(world.printer.bold) << c.reason;
    EXPECT_TRUE(world.dialogs.shown.empty()) << c.reason;
  }
}

TEST(ReportFitting, SmallFontWarnsAndOnlyNoGoesOn) {
  ReportEnvironment world;
  Report report = world.report();
  report.SetLinesPerPage(77);
  EXPECT_FALSE(report.SetReportWidth(300));
  EXPECT_EQ(report.LineasPagina(), 76) << "Yes leaves the lines per page";
  EXPECT_EQ(world.dialogs.shown,
            (std::vector<std::wstring>{L": ADVERTENCIA: El reporte podría no imprimirse completo "
                                       L"con su actual configuración de impresión",
                                       L"? Desea emitirlo, a pesar de ello"}));
  EXPECT_EQ(world.printer.sizesAsked.back(), 4) << "not tried below 4 points";
  world.dialogs.answer = Answer::No;
  EXPECT_TRUE(report.SetReportWidth(300));
  EXPECT_EQ(report.LineasPagina(), 185);
}

TEST(ReportFitting, FixedFontOnlyStoresTheWidth) {
  ReportEnvironment world;
  Report report = world.report();
  report.SetPrintFontSize(11);
  world.printer.calls = 0;
  EXPECT_FALSE(report.SetReportWidth(2));
  EXPECT_EQ(world.printer.calls, 0);
  EXPECT_EQ(world.printer.size, 11);
  EXPECT_EQ(world.printer.name, L"Courier New");
  report.Add(L"abc", 2);
  report.LoadText();
  EXPECT_EQ(world.box.content, L"ab \r\n");
}

TEST(ReportFitting, WhateverPrinterCallFailsTheMemberReturnsAndTheTraceTells) {
  ReportEnvironment counting;
  counting.report().SetReportWidth(120);
  for (int call = 1; call <= counting.printer.calls; ++call) {
    ReportEnvironment world;
    world.printer.failingCall = call;
    Report report = world.report();
    EXPECT_EQ(report.LineasPagina(), kNoPaging - 1) << "nothing is paged, call " << call;
    EXPECT_FALSE(report.SetReportWidth(40)) << call;
    EXPECT_NO_THROW(report.SetPrintFontSize(9)) << call;
    EXPECT_EQ(world.traced, std::vector<std::wstring>(3, L"Printer: TextOut, error 5")) << call;
    EXPECT_FALSE(world.printer.isOpen) << call;
  }
}

// A network printer that is away must not freeze a till that only starts.
TEST(ReportFitting, PrinterIsAskedNoSoonerThanNeededAndGivenBack) {
  const struct {
    const char* reason;
    void (*use)(Report& report);
    bool asks;
  } kCases[] = {
      {"nothing", [](Report&) {}, false},
      {"showing", [](Report& r) { r.LoadText(); }, false},
      {"a line", [](Report& r) { r.Add(L"a", 0); }, true},
      {"its lines", [](Report& r) { static_cast<void>(r.LineasPagina()); }, true},
      {"a font", [](Report& r) { r.SetPrintFontSize(9); }, true},
      {"printing", [](Report& r) { r.PrintListBox(); }, true},
  };
  for (const auto& c : kCases) {
    ReportEnvironment world;
    Report report = world.report();
    report.SetLinesPerPage(50);
    c.use(report);
    EXPECT_EQ(world.printer.opened != 0, c.asks) << c.reason;
    EXPECT_FALSE(world.printer.isOpen) << c.reason;
    EXPECT_EQ(report.LineasPagina(), c.use == kCases[5].use ? 104 : 49) << c.reason;
    report.SetReportWidth(40);
    report.Add(L"b", 0);
    EXPECT_EQ(report.LineasPagina(), c.use == kCases[4].use ? 49 : 50) << c.reason;
    EXPECT_EQ(world.printer.isOpen, false) << c.reason;
  }
}

TEST(ReportFitting, RunTimeErrorsReachTheHostButNotCreation) {
  const struct {
    double height;
    double lineHeight;
    std::int16_t width;
    int error;
    const char* reason;
  } kCases[] = {
      {15120, 1, 32762, 6, "width and allowance"},
      {15120, 1, -7, 5, "no text of negative length"},
      {15120, 1, -6, 0, "a text without length fits"},
      {1e9, 1, 120, 6, "lines per page"},
      {15120, 0, 120, 11, "a font without height"},
  };
  for (const auto& c : kCases) {
    ReportEnvironment world;
    world.printer.height = c.height;
    world.printer.lineHeight = c.lineHeight;
    Report report = world.report();
    EXPECT_EQ(errorOf([&] { return report.SetReportWidth(c.width); }), c.error) << c.reason;
  }
}

using Pages = std::vector<PaperPrinter::Page>;

class ReportPrinting : public testing::Test {
 protected:
  ReportPrinting() { report.LoadText(); }

  Pages print(const std::wstring& text) {
    world.printer.pages = Pages(1);
    world.box.setText(text);
    report.PrintListBox();
    return world.printer.pages;
  }

  ReportEnvironment world;
  Report report = world.report();
};

TEST_F(ReportPrinting, LinesGoToTheirPages) {
  const struct {
    const wchar_t* text;
    Pages pages;
    const char* reason;
  } kCases[] = {
      {L"", {{L" |"}}, "an empty report is one blank line"},
      {L"a \r\nb \r\n", {{L" |", L"  a |", L"  b |"}}, "a closing break adds no line"},
      {L"a \r\nb ", {{L" |", L"  a |", L"  b |"}}, "a last line without a break"},
      {L"a \r\n____\r\nb \r\n", {{L" |", L"  a |"}, {L"  b |"}}, "a page break is not printed"},
      {L"_total\r\n_\r\nb", {{L" |"}, {}, {L"  b|"}}, "any underscore in front breaks"},
      {L"a_\r\n\r\nb", {{L" |", L"  a_|", L"  |", L"  b|"}}, "inside a line it does not"},
      {L"a\nb\rc", {{L" |", L"  a\nb\rc|"}}, "only both characters end a line"},
      {L"\ta\t1234567\tb", {{L" |", L"          a       1234567 b|"}}, "tabs by eight columns"},
  };
  report.setLeftMargin(2);
  for (const auto& c : kCases) {
    EXPECT_EQ(print(c.text), c.pages) << c.reason;
    EXPECT_TRUE(world.printer.ended) << c.reason;
    EXPECT_FALSE(world.printer.aborted) << c.reason;
    EXPECT_FALSE(report.printing()) << c.reason;
  }
}

TEST_F(ReportPrinting, StripPrinterGetsFortyCharactersBehindACarriageReturn) {
  world.printer.device = L"VeriFone";
  report.setLeftMargin(2);
  const std::wstring line(39, L'x');
  EXPECT_EQ(print(line + L"yz\r\n__\r\n"),
            (Pages{{L" |", L"\r" + line + L"y", L"\r__" + std::wstring(38, L' ')}}));
}

TEST_F(ReportPrinting, WhateverPrinterCallFailsTheJobIsAbortedAndTold) {
  const std::wstring text = L"a\r\n__\r\nb";
  report.SetPrintFontSize(9);
  world.printer.calls = 0;
  print(text);
  const int calls = world.printer.calls;
  for (int call = 1; call <= calls; ++call) {
    world.printer.ended = world.printer.aborted = false;
    world.printer.calls = 0;
    world.printer.failingCall = call;
    world.traced.clear();
    EXPECT_EQ(report.print(), PrintEnd::Failed) << call;
    EXPECT_TRUE(world.printer.aborted) << call;
    EXPECT_FALSE(world.printer.ended) << call;
    EXPECT_FALSE(report.printing()) << call;
    EXPECT_FALSE(world.printer.isOpen) << call;
    EXPECT_EQ(world.traced, std::vector<std::wstring>{L"Printer: TextOut, error 5"}) << call;
  }
  for (const std::uint32_t code : {63U, 1223U}) {
    world.printer.failureCode = code;
    EXPECT_EQ(report.print(), PrintEnd::Stopped) << "cancelled in the driver's own dialog";
  }
}

// A driver's dialog runs the host's messages, in which its user clicks again.
TEST_F(ReportPrinting, NothingComesBetweenTheFirstCallAndTheLast) {
  const Pages whole = print(L"a\r\n__\r\nb");
  world.printer.calls = 0;
  print(L"a\r\n__\r\nb");
  for (int call = world.printer.calls; call >= 1; --call) {
    bool wasBusy = false;
    world.printer.calls = 0;
    world.printer.onCall = [&](int current) {
      if (current != call) return;
      wasBusy = report.print() == PrintEnd::Busy;
      EXPECT_FALSE(report.SetReportWidth(40));
    };
    EXPECT_EQ(print(L"a\r\n__\r\nb"), whole) << call;
    EXPECT_TRUE(wasBusy) << call;
    EXPECT_EQ(world.printer.size, 14) << "fitted after the job, call " << call;
    world.printer.onCall = [](int) {};
    report.SetReportWidth(120);
  }
}

TEST_F(ReportPrinting, RunTimeErrorReachesTheHostWithTheJobAborted) {
  EXPECT_EQ(errorOf([&] { return report.SetReportWidth(32767); }), 6);
  EXPECT_EQ(errorOf([&] { return print(L"a"); }), 6);
  EXPECT_TRUE(world.printer.aborted);
  EXPECT_FALSE(report.printing());
  report.SetReportWidth(40);
  world.printer.onLine = [&] { world.printer.lineHeight = 1e9; };
  EXPECT_EQ(errorOf([&] { return print(L"a"); }), 6) << "lower than a counter reaches";
}

TEST_F(ReportPrinting, BlankFirstLineHasTheFontOfTheOthers) {
  std::vector<double> sizes;
  world.printer.onLine = [&] { sizes.push_back(world.printer.size); };
  print(L"a");
  EXPECT_EQ(sizes, (std::vector<double>{7, 7}));
}

}  // namespace
}  // namespace corvid
