// The printer of reports where there is none, and where one measures but takes no document.
#include "windows/gdi_report_printer.h"

#include "desktop.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace corvid {
namespace {

constexpr auto kTitle = [] { return std::wstring(L"title"); };

TEST(Printer, WithoutOneWhatNeedsItSaysSoAndTheFontIsKept) {
  bool isInstalled = false;
  GdiReportPrinter printer(
      [&](ContextKind kind) { return isInstalled ? screenAsPrinter(kind) : noPrinter(kind); },
      kTitle);
  EXPECT_THROW(static_cast<void>(printer.scaleWidth()), PrinterError);
  EXPECT_THROW(printer.printLine(L"text", LineEnd::Break), PrinterError);
  EXPECT_NO_THROW(printer.abortDocument()) << "no job has begun";
  EXPECT_NO_THROW(printer.endDocument()) << "no job has begun";
  printer.setFontName(L"Courier New");
  printer.setFontSize(9);
  isInstalled = true;
  EXPECT_NEAR(printer.textHeight(L"N"), 9 * 20, 60);
  EXPECT_EQ(printer.fontSize(), 9);
}

TEST(Printer, IsOpenOnlyWhileItMeasuresOrPrints) {
  std::wstring name = L"first";
  std::vector<ContextKind> opened;
  GdiReportPrinter printer(
      [&](ContextKind kind) {
        opened.push_back(kind);
        return OpenedPrinter{DeviceContext(CreateCompatibleDC(nullptr)), name};
      },
      kTitle);
  EXPECT_EQ(printer.deviceName(), L"first");
  EXPECT_GT(printer.scaleWidth(), 0);
  name = L"second";
  EXPECT_EQ(printer.deviceName(), L"first") << "still open";
  EXPECT_THROW(printer.printLine(L"text", LineEnd::Break), PrinterError) << "a screen, after all";
  EXPECT_EQ(printer.deviceName(), L"second") << "of the job's time";
  name = L"third";
  printer.release();
  EXPECT_EQ(printer.deviceName(), L"third");
  using enum ContextKind;
  EXPECT_EQ(opened, (std::vector{Measures, Prints, Measures}));
}

TEST(Printer, MeasuresTextsOfAnyLength) {
  GdiReportPrinter printer(screenAsPrinter, kTitle);
  const double thousand = printer.textWidth(std::wstring(1000, L'n'));
  EXPECT_NEAR(printer.textWidth(std::wstring(32000, L'n')), 32 * thousand, thousand / 100);
}

TEST(Printer, MeasuresInTwips) {
  GdiReportPrinter printer(screenAsPrinter, kTitle);
  const DeviceContext screen(CreateCompatibleDC(nullptr));
  EXPECT_EQ(printer.scaleMode(), ScaleMode::Twips);
  EXPECT_DOUBLE_EQ(printer.scaleWidth(), GetDeviceCaps(screen.get(), HORZRES) * 1440.0 /
                                             GetDeviceCaps(screen.get(), LOGPIXELSX));
  EXPECT_DOUBLE_EQ(printer.scaleHeight(), GetDeviceCaps(screen.get(), VERTRES) * 1440.0 /
                                              GetDeviceCaps(screen.get(), LOGPIXELSY));
  EXPECT_EQ(printer.textWidth(L""), 0);
  const double one = printer.textWidth(L"n");
  EXPECT_GT(one, 0);
  printer.setFontSize(20);
  EXPECT_GT(printer.textWidth(L"n"), one);
  EXPECT_NEAR(printer.textHeight(L"N"), 20 * 20, 200) << "a line of 20 points";
  const double light = printer.textWidth(L"iiiiiiiiii");
  printer.setFontItalic(true);
  printer.setFontName(L"Liberation Sans");
  printer.setFontBold(true);
  EXPECT_TRUE(printer.fontBold() && printer.fontItalic());
  EXPECT_EQ(printer.fontName(), L"Liberation Sans");
  EXPECT_NE(printer.textWidth(L"iiiiiiiiii"), light);
}

TEST(Printer, KeepsSizesInHalfPoints) {
  GdiReportPrinter printer(screenAsPrinter, kTitle);
  struct Case {
    double size;
    double kept;
  };
  for (const Case& c : {Case{13.5, 13.5}, Case{9.3, 9.5}, Case{9.25, 9}, Case{2160, 2160},
                        Case{1, 1}, Case{0.1, 0.5}}) {
    printer.setFontSize(c.size);
    EXPECT_EQ(printer.fontSize(), c.kept) << c.size;
  }
  printer.setFontSize(12);
  for (const double size : {0.0, -3.0, 2160.5, 1e300}) {
    EXPECT_THROW(printer.setFontSize(size), PrinterError) << size;
  }
  EXPECT_EQ(printer.fontSize(), 12) << "a refused size changes nothing";
}

}  // namespace
}  // namespace corvid
