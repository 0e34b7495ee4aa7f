#include "preview/quick_view.h"

#include "basic/run_time_error.h"
#include "report_bench.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvid {
namespace {

using Texts = std::vector<std::wstring>;

class Listener : public ClickListener {
 public:
  bool cancel = false;
  Texts heard;

  bool raiseReportClicked(const std::wstring& line, std::int32_t column) override {
    heard.push_back(line + L"@" + std::to_wstring(column));
    return cancel;
  }
};

class Target : public NotifyTarget {
 public:
  explicit Target(Texts& heard) : heard_(heard) {}
  void ReportClicked(const std::wstring& line, std::int32_t column) override {
    heard_.push_back(line + L"@" + std::to_wstring(column));
    throw std::runtime_error("the host's own error");
  }

 private:
  Texts& heard_;
};

class Preview : public testing::Test {
 protected:
  // A shown window over a text.
  void show(const std::wstring& text) {
    view.load();
    view.showing();
    world.box.setText(text);
  }

  ReportEnvironment world;
  WindowDouble window;
  Listener listener;
  QuickView view{world.settings,
                 {window, world.box, world.printer, world.dialogs, world.files, listener, {}}};
};

TEST_F(Preview, LoadMakesTheBoxReadyAndShowsTheMargin) {
  world.box.content = L"left over";
  view.setLeftMargin(6);
  EXPECT_EQ(window.margin, L"") << "no controls yet";
  view.load();
  EXPECT_EQ(world.box.content, L"");
  EXPECT_EQ(world.box.font, L"Courier New");
  EXPECT_EQ(world.box.margin, 48000);
  EXPECT_TRUE(world.box.locked);
  EXPECT_EQ(window.margin, L"6");
  view.setLeftMargin(1234);
  EXPECT_EQ(window.margin, L"1234");
  EXPECT_NE(errorOf([&] { return view.setLeftMargin(-1), 0; }), 0);
  EXPECT_EQ(window.margin, L"1234");
  world.set(L"EditQView", L"1");
  view.load();
  EXPECT_FALSE(world.box.locked);
}

TEST_F(Preview, TextIsLoadedAtShowingAndByTheFirstActivationOnly) {
  view.load();
  view.report().Add(L"a", 0);
  view.activate();
  EXPECT_EQ(world.box.content, L"a \r\n");
  view.report().Add(L"b", 0);
  view.activate();
  EXPECT_EQ(world.box.start, world.box.length()) << "the caret was not moved again";
  view.close();
  view.showing();
  EXPECT_EQ(world.box.content, L"a \r\n\r\nb ");
  EXPECT_EQ(world.box.start, 1);
}

TEST_F(Preview, RightMarginFollowsOnlyAWiderWindow) {
  view.load();
  EXPECT_EQ(view.resize(100, 100).width, 11895);
  EXPECT_EQ(world.box.margin, 48000);
  EXPECT_EQ(view.resize(60000, 9000).of(Control::Text1).width, 59535);
  EXPECT_EQ(world.box.margin, 59535);
}

TEST_F(Preview, PrintingTakesTheMarginFromItsEntry) {
  const struct {
    const wchar_t* entry;
    const wchar_t* line;
    const char* reason;
  } kCases[] = {{L"3", L"   a|", "a margin"},
                {L"2.5", L"  a|", "half to even"},
                {L"-3", L"a|", "none for a negative entry"},
                {L"40000", L"a|", "none beyond 16 bits"}};
  show(L"a");
  for (const auto& c : kCases) {
    window.margin = c.entry;
    world.printer.pages = {{}};
    view.print();
    EXPECT_EQ(world.printer.pages.back().back(), c.line) << c.reason;
    EXPECT_EQ(window.margin, c.entry) << "the entry stays as typed";
  }
  world.printer.height = 1e9;  // lines per page beyond 16 bits
  EXPECT_NO_THROW(view.print()) << "a button has no host to raise to";
  EXPECT_TRUE(world.printer.aborted);
  EXPECT_EQ(world.dialogs.shown, Texts{L"! ADVERTENCIA: No se pudo imprimir el reporte: Overflow"});
}

TEST_F(Preview, ClosingAsksOnlyWhilePrintingAndOnlyNoStops) {
  show(L"a\r\nb");
  view.close();
  EXPECT_EQ(window.hides, 1);
  EXPECT_TRUE(world.dialogs.shown.empty());
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    world.dialogs.answer = answer;
    world.dialogs.shown.clear();
    window.hides = 0;
    world.printer.ended = world.printer.aborted = false;
    int lines = 0;
    world.printer.onLine = [&] {
      if (++lines == 2) view.close();
    };
    view.print();
    EXPECT_EQ(world.dialogs.shown, Texts{L"Halewood? Detener la impresión en progreso"});
    EXPECT_EQ(window.hides, answer == Answer::No ? 1 : 0);
    EXPECT_EQ(world.printer.aborted, answer == Answer::No);
    EXPECT_EQ(world.printer.ended, answer == Answer::Yes);
  }
}

TEST_F(Preview, ChosenPrinterFontIsFixed) {
  show(L"");
  view.choosePrinterFont();
  EXPECT_EQ(world.dialogs.fontOffered, (FontChoice{L"Courier New", 7, false, true}));
  EXPECT_TRUE(view.report().SetReportWidth(40)) << "cancelled: still fitted";
  world.dialogs.font = FontChoice{L"Fixed", 9.5, true, false};
  view.choosePrinterFont();
  EXPECT_FALSE(view.report().SetReportWidth(40));
  EXPECT_EQ(world.printer.name, L"Fixed");
  EXPECT_EQ(world.printer.size, 9.5);
  EXPECT_TRUE(world.printer.bold);
  EXPECT_FALSE(world.printer.italic);
  EXPECT_EQ(world.box.font, L"Fixed");
}

TEST_F(Preview, FontChosenWhilePrintingWaitsForTheEnd) {
  show(L"a\r\nb");
  world.dialogs.font = FontChoice{L"Fixed", 9.5, true, false};
  world.printer.onLine = [&] {
    view.choosePrinterFont();
    EXPECT_NE(world.printer.name, L"Fixed");
  };
  view.print();
  EXPECT_EQ(world.printer.name, L"Fixed");
  EXPECT_FALSE(world.printer.isOpen);
}

TEST_F(Preview, ScreenFontStaysWithinItsLimitsAndIsKept) {
  show(L"");
  for (int i = 0; i < 30; ++i) view.growScreenFont();
  EXPECT_EQ(world.box.size, kGreatestScreenFont);
  for (int i = 0; i < 30; ++i) view.stepScreenFont(-3);
  EXPECT_EQ(world.box.size, kLeastScreenFont);
  EXPECT_EQ(world.box.refreshes, 60);
  view.growScreenFont();
  world.box.size = 0;
  view.load();
  EXPECT_EQ(world.box.size, kLeastScreenFont + 1) << "by the controls that came after";
}

TEST_F(Preview, SearchBeginsBehindTheSelectionAndWraps) {
  const struct {
    std::int32_t start;
    std::int32_t selected;
    std::int32_t from;
    bool found;
    const char* reason;
  } kCases[] = {
      {0, 0, 1, true, "one behind the caret"},
      {1, 1, 3, true, "one behind the selection"},
      {3, 2, 6, false, "from the last character there is no other"},
      {5, 1, 0, true, "from the end it wraps to the top"},
      {7, 0, 0, true, "behind the end, too"},
  };
  show(L"aXbxaXb");  // 7 characters
  for (const auto& c : kCases) {
    world.box.select(c.start, c.selected);
    world.dialogs.shown.clear();
    view.FindText(L"x");
    EXPECT_EQ(world.box.searchedFrom.back(), c.from) << c.reason;
    EXPECT_EQ(world.dialogs.shown.empty(), c.found) << c.reason;
  }
  view.FindText(L"no such text");
  EXPECT_EQ(world.dialogs.shown, Texts{L"! ADVERTENCIA: No se localizó el texto deseado"});
}

TEST_F(Preview, SearchOffersAndRepeatsTheLastText) {
  show(L"uno dos uno dos");
  world.dialogs.entered = L"";
  view.search();
  EXPECT_TRUE(world.box.searchedFrom.empty()) << "cancelled";
  world.dialogs.entered = L"DOS";
  view.search();
  EXPECT_EQ(world.box.start, 4);
  EXPECT_TRUE(view.keyDown({kF3Key}));
  EXPECT_EQ(world.box.start, 12);
  for (const int start : {4, 12}) {  // wraps
    EXPECT_TRUE(view.keyDown({kF3Key, false, true}));
    EXPECT_EQ(world.box.start, start);
    EXPECT_EQ(world.box.selected, 3);
  }
  view.search();
  EXPECT_EQ(world.dialogs.shown.back(), L"Buscar: Introduzca el texto a localizar: [DOS]");
}

TEST_F(Preview, KeysDoWhatTheButtonsDo) {
  const auto done = [&] {
    return Texts{std::to_wstring(window.hides), std::to_wstring(world.dialogs.shown.size()),
                 world.files.contents.empty() ? L"" : L"text",
                 world.printer.ended ? L"printed" : L"", std::to_wstring(world.box.size)};
  };
  const std::wstring nine = std::to_wstring(9.0);
  const struct {
    KeyPress key;
    Texts outcome;
    const char* reason;
  } kCases[] = {
      {{kEscapeKey}, {L"1", L"0", L"", L"", nine}, "Escape hides"},
      {{'F', true}, {L"0", L"1", L"", L"", nine}, "Ctrl+F asks for a text"},
      {{'S', true}, {L"0", L"0", L"text", L"", nine}, "Ctrl+S saves"},
      {{'P', true}, {L"0", L"0", L"", L"printed", nine}, "Ctrl+P prints"},
      {{107, true}, {L"0", L"0", L"", L"", std::to_wstring(10.0)}, "Ctrl and plus"},
      {{189, true, true}, {L"0", L"0", L"", L"", std::to_wstring(8.0)}, "Ctrl and minus"},
      {{kF3Key, false, true}, {L"0", L"1", L"", L"", nine}, "nothing to be found"},
      {{'F'}, {L"0", L"0", L"", L"", nine}, "a letter, as AltGr's are"},
      {{107}, {L"0", L"0", L"", L"", nine}, "plus alone"},
      {{13}, {L"0", L"0", L"", L"", nine}, "another key"},
  };
  world.dialogs.file = L"C:\\r.txt";
  for (const auto& c : kCases) {
    view.load();
    show(L"text");
    window.hides = 0;
    world.dialogs.shown.clear();
    world.files.contents.clear();
    world.printer.ended = false;
    const bool isNothing = c.outcome == Texts{L"0", L"0", L"", L"", nine};
    EXPECT_EQ(view.keyDown(c.key), !isNothing) << c.reason;
    EXPECT_EQ(done(), c.outcome) << c.reason;
    while (world.box.size > 9) view.shrinkScreenFont();
    while (world.box.size < 9) view.growScreenFont();
  }
}

TEST_F(Preview, SavesToTheChosenFileAndTellsAFailure) {
  view.report().Add(L"unseen", 0);
  view.save();
  EXPECT_TRUE(world.files.contents.empty()) << "cancelled";
  EXPECT_EQ(world.dialogs.request.title, L"Nombre del archivo");
  EXPECT_EQ(world.dialogs.request.filterPattern, L"*.txt");
  world.dialogs.file = L"C:\\r.txt";
  view.save();
  const std::map<std::wstring, std::string> whole{{L"C:\\r.txt", "unseen \r\n"}};
  EXPECT_EQ(world.files.contents, whole);
  EXPECT_TRUE(world.dialogs.shown.empty());
  view.report().Add(L"more", 0);
  const int calls = world.files.calls;
  for (int call = 1; call <= calls; ++call) {
    world.files.calls = 0;
    world.files.failingCall = call;
    world.dialogs.shown.clear();
    view.save();
    EXPECT_EQ(world.files.contents, whole) << "the old file stays, alone; call " << call;
    ASSERT_EQ(world.dialogs.shown.size(), 1U) << call;
    EXPECT_TRUE(world.dialogs.shown[0].starts_with(
        L"! ADVERTENCIA: No se pudo guardar el archivo: C:\\r.txt\r\n"));
  }
}

TEST_F(Preview, WhatPreventsPrintingIsTold) {
  show(L"a");
  world.printer.failingCall = 1;
  view.print();
  EXPECT_EQ(world.dialogs.shown,
            Texts{L"! ADVERTENCIA: No se pudo imprimir el reporte: TextOut, error 5"});
}

TEST_F(Preview, LeavingTheMarginEntryChecksItOnce) {
  const Texts told{L"! PrinterFiscalCorvid (commAPI): Por favor, introduzca un númeto valido"};
  const struct {
    const wchar_t* entry;
    bool valid;
    const wchar_t* becomes;
  } kCases[] = {{L"12.5", true, L"12"}, {L"1-2", false, L"1"}, {L"", false, L"0"},
                {L" ", false, L"0"},    {L"-3", true, L"-3"},  {L" 8", true, L"8"}};
  world.dialogs.whileShown = [&] { view.leaveMarginEntry(); };  // the box takes the focus
  window.onFocus = [&] { view.leaveMarginEntry(); };
  for (const auto& c : kCases) {
    window.margin = c.entry;
    window.focuses = 0;
    world.dialogs.shown.clear();
    view.leaveMarginEntry();
    EXPECT_EQ(world.dialogs.shown, c.valid ? Texts{} : told) << c.becomes;
    EXPECT_EQ(window.focuses, c.valid ? 0 : 1) << c.becomes;
    EXPECT_EQ(window.margin, c.becomes);
  }
  view.stepMargin(2);
  EXPECT_EQ(window.margin, L"10");
}

TEST_F(Preview, ClickTellsTheEventThenTheTarget) {
  Texts notified;
  show(L"uno dos \r\ntres \r\n");
  view.SetNotify(std::make_shared<Target>(notified));
  world.box.select(4, 3);
  EXPECT_NO_THROW(view.clickText()) << "the target's error is passed over";
  EXPECT_EQ(listener.heard, Texts{L"uno dos @4"});
  EXPECT_EQ(notified, listener.heard);
  EXPECT_EQ(world.box.start, 4);
  EXPECT_EQ(world.box.selected, 0);

  listener.cancel = true;
  view.clickText();
  EXPECT_EQ(listener.heard.size(), 2U);
  EXPECT_EQ(notified.size(), 1U) << "cancelled";

  listener.cancel = false;
  view.SetNotify(nullptr);
  view.clickText();
  EXPECT_EQ(listener.heard.size(), 3U);
  EXPECT_EQ(notified.size(), 1U) << "cleared";

  world.box.select(10, 2);  // before a line
  view.clickText();
  EXPECT_EQ(listener.heard.size(), 3U);
  EXPECT_EQ(world.box.selected, 2) << "nothing more is done";
}

}  // namespace
}  // namespace corvid
