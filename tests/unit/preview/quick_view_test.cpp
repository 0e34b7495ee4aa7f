#include "preview/quick_view.h"

#include "basic/run_time_error.h"
#include "report_bench.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <array>
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
                 {window, world.box, world.printer, world.dialogs, world.files, listener,
                  [this](const std::wstring& words) { world.traced.push_back(words); }}};
};

TEST_F(Preview, LoadMakesTheBoxReadyAndShowsTheMargin) {
  EXPECT_EQ(view.report().LeftMargin(), 0);
  view.setLeftMargin(6);
  EXPECT_EQ(window.margin, L"") << "no controls yet";
  for (const bool isEditable : {false, true}) {
    world.set(L"EditQView", isEditable ? L"1" : L"0");
    view.load();
    EXPECT_EQ(world.box.locked, !isEditable);
  }
  EXPECT_EQ(world.box.font, L"Courier New");
  EXPECT_EQ(view.resize(60000, 9000).of(Control::Text1).width, 59535);
  EXPECT_EQ(world.box.margin, 59535) << "follows a wider window";
  EXPECT_EQ(window.margin, L"6");
  view.setLeftMargin(7);
  EXPECT_NE(errorOf([&] { return view.setLeftMargin(-1), 0; }), 0);
  EXPECT_EQ(window.margin, L"7");
}

TEST_F(Preview, ActivationBringsTheLinesOnce) {
  view.load();
  view.report().Add(L"line", 0);
  view.activate();
  EXPECT_EQ(world.box.text(), L"line \r\n");
  world.box.setText(L"");
  view.activate();
  EXPECT_EQ(world.box.text(), L"") << "what the user deleted stays away";
}

TEST_F(Preview, PrintingTakesTheMarginFromItsEntryAndTellsItsFailures) {
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
  world.printer.failingCall = 1;
  view.print();
  EXPECT_EQ(world.dialogs.shown,
            (Texts{L"! ADVERTENCIA: No se pudo imprimir el reporte: Overflow",
                   L"! ADVERTENCIA: No se pudo imprimir el reporte: TextOut, error 5"}));
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
  EXPECT_FALSE(world.printer.isOpen) << "others may print";
  EXPECT_FALSE(view.report().SetReportWidth(40));
  EXPECT_EQ(world.printer.name, L"Fixed");
  EXPECT_EQ(world.printer.size, 9.5);
  EXPECT_TRUE(world.printer.bold);
  EXPECT_FALSE(world.printer.italic);
  EXPECT_EQ(world.box.font, L"Fixed");
  world.dialogs.font->name = L"Other";
  world.printer.onLine = [&] {
    view.choosePrinterFont();
    EXPECT_EQ(world.printer.name, L"Fixed") << "waits for the end";
  };
  view.print();
  EXPECT_EQ(world.printer.name, L"Other");
  world.printer.failingCall = 1;
  view.choosePrinterFont();
  EXPECT_EQ(world.traced, Texts{L"Printer: TextOut, error 5"});
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
  const struct {
    KeyPress key;
    std::array<int, 4> done;  // hidden, asked or told, saved, printed
    double font;
    const char* reason;
  } kCases[] = {
      {{27}, {1, 0, 0, 0}, 9, "Escape hides"},
      {{'F', true}, {0, 1, 0, 0}, 9, "Ctrl+F asks for a text"},
      {{'S', true}, {0, 0, 1, 0}, 9, "Ctrl+S saves"},
      {{'P', true}, {0, 0, 0, 1}, 9, "Ctrl+P prints"},
      {{114, false, true}, {0, 1, 0, 0}, 9, "Shift+F3: nothing to be found"},
      {{107, true}, {}, 10, "Ctrl and plus of the number pad"},
      {{187, true}, {}, 11, "Ctrl and plus"},
      {{109, true}, {}, 10, "Ctrl and minus of the number pad"},
      {{189, true, true}, {}, 9, "Ctrl and minus"},
      {{'F'}, {}, 9, "a letter, as AltGr's are"},
      {{107}, {}, 9, "plus alone"},
  };
  world.dialogs.file = L"C:\\r.txt";
  show(L"text");
  for (const auto& c : kCases) {
    window.hides = 0;
    world.dialogs.shown.clear();
    world.files.contents.clear();
    world.printer.ended = false;
    const double before = world.box.size;
    const bool isUsed = view.keyDown(c.key);
    const bool didAny = c.done != std::array<int, 4>();
    EXPECT_EQ(isUsed, didAny || world.box.size != before) << c.reason;
    const std::array<int, 4> done = {window.hides, static_cast<int>(world.dialogs.shown.size()),
                                     static_cast<int>(world.files.contents.size()),
                                     world.printer.ended ? 1 : 0};
    EXPECT_EQ(done, c.done) << c.reason;
    EXPECT_EQ(world.box.size, c.font) << c.reason;
  }
}

TEST_F(Preview, LeavingTheMarginEntryChecksItOnce) {
  world.dialogs.whileShown = [&] { view.leaveMarginEntry(); };  // the box takes the focus
  window.onFocus = [&] { view.leaveMarginEntry(); };
  for (const bool isValid : {true, false}) {
    window.margin = isValid ? L" 12.5" : L"";
    view.leaveMarginEntry();
    EXPECT_EQ(world.dialogs.shown.size(), isValid ? 0U : 1U);
    EXPECT_EQ(window.focuses, isValid ? 0 : 1);
    EXPECT_EQ(window.margin, isValid ? L"12" : L"0");
  }
  EXPECT_EQ(world.dialogs.shown, Texts{L"! PrinterFiscalCorvid (commAPI): Por favor, introduzca un "
                                       L"númeto valido"});
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
