#include "basic/run_time_error.h"
#include "preview/report.h"
#include "report_bench.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvid {
namespace {

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
  world.printer.failureCode = 1223;
  EXPECT_EQ(report.print(), PrintEnd::Stopped) << "cancelled in the driver's own dialog";
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
}

}  // namespace
}  // namespace corvid
