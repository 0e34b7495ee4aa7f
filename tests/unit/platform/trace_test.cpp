// Where trace lines go, and how they look.
#include "platform/trace.h"

#include "support/world.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

struct TraceBench {
  World world;
  TraceFile target;
  TraceLog log{{world.clock, world.folders, world.views, world.files, windows1252(), world.locale},
               target};

  explicit TraceBench(bool toView = false) {
    set(L"IsDebug", L"True");
    set(L"DebugInmediato", toView ? L"True" : L"False");
    set(L"DEBUGFILE", L"trace.log");
    world.clock.setNow(*parseDate(L"2026-03-04 05:06:07"));
    world.clock.setSeconds(18367.25);
    follow();
  }
  void set(const wchar_t* key, const std::wstring& value) {
    world.settings.set(kSessionSection, key, value);
  }
  void follow() { log.follow(Settings(world.settings, world.store, L"C:\\host")); }
  // Without the first line, which tells the settings.
  [[nodiscard]] std::string lines(const wchar_t* file = L"C:\\host\\trace.log") {
    const std::string all = world.files.contents[file];
    return all.substr(std::min(all.find("\r\n"), all.size() - 2) + 2);
  }
};

TEST(TraceFile, LineHoldsTheTimeAndTheSecondsRightAligned) {
  const struct {
    double seconds;
    std::string text;
    const char* reason;
  } kCases[] = {
      {0, "        0", "eight blanks and no more"},
      {18367.25, "  18367.25", "single precision"},
      {86399.9921875, "  86399.99", "seven digits of a single"},
      {0.5, "       0.5", "a fraction alone"},
  };
  for (const auto& item : kCases) {
    TraceBench bench;
    bench.world.clock.setSeconds(item.seconds);
    bench.log.Trace(L"Descripci\u00F3n \u4E2D");
    EXPECT_EQ(bench.lines(), "04/03 05:06:07 " + item.text + " Descripci\xF3n ?\r\n")
        << item.reason;
  }
  TraceBench bench;
  bench.world.locale.locale = venezuelan();
  bench.log.Trace(L"x");
  EXPECT_EQ(bench.lines(), "04/03 05:06:07   18367,25 x\r\n") << "in the user's locale";
}

TEST(TraceFile, StaysOpenAndEachLineIsOneWrite) {
  TraceBench bench;
  EXPECT_EQ(bench.world.files.openFiles, 0) << "until the first line";
  for (int i = 0; i < 3; ++i) bench.log.Trace(L"x");
  EXPECT_EQ(bench.world.files.openFiles, 1);
  EXPECT_EQ(bench.world.files.writes, 1 + 3) << "the settings are told once";
  const std::string all = bench.world.files.contents[L"C:\\host\\trace.log"];
  EXPECT_NE(all.find(" Settings: C:\\host\\ORV.ini\r\n"), std::string::npos) << all;
  bench.log.closeFile();
  EXPECT_EQ(bench.world.files.openFiles, 0);
  bench.log.Trace(L"y");
  EXPECT_TRUE(bench.lines().ends_with(" y\r\n"));
}

TEST(TraceFile, FollowsTheNewestSession) {
  TraceBench bench;
  bench.log.Trace(L"first");
  bench.set(L"DEBUGFILE", L"other.log");
  bench.log.Trace(L"second");
  bench.follow();
  bench.log.Trace(L"third");
  EXPECT_TRUE(bench.lines().ends_with(" second\r\n")) << "a session keeps the name it found";
  EXPECT_TRUE(bench.lines(L"C:\\host\\other.log").ends_with(" third\r\n"));
  bench.set(L"IsDebug", L"False");
  bench.follow();
  bench.log.traceWith([]() -> std::wstring {
    ADD_FAILURE() << "words are not made while the trace is off";
    return {};
  });
  bench.log.Trace(L"fourth");
  EXPECT_EQ(bench.world.files.writes, 5);
}

TEST(TraceFile, LiesInTheDocumentsFolderUnlessNamed) {
  const struct {
    std::wstring inFile;
    std::wstring inStore;
    std::wstring path;
  } kCases[] = {
      {L"", L"", L"C:\\documents\\FPRINTER.LOG"},
      {L"D:\\t.log", L"s.log", L"D:\\t.log"},
      {L"\\\\server\\t.log", L"", L"C:\\documents\\FPRINTER.LOG"},
      {L"LOGS\\NUL.TXT", L"s.log", L"C:\\host\\s.log"},
      {L"", L"\\\\server\\t.log", L"\\\\server\\t.log"},
  };
  for (const auto& item : kCases) {
    TraceBench bench;
    bench.set(L"DEBUGFILE", item.inFile);
    if (!item.inStore.empty()) {
      bench.world.settings.setInStore(kSessionSection, L"DEBUGFILE", item.inStore);
    }
    bench.log.Trace(L"x");
    EXPECT_EQ(bench.log.fileName(), item.path);
  }
}

TEST(TraceFile, FailuresAreSilentAndTheNextLineTriesAgain) {
  for (const char* call : {"openFile", "appendFile"}) {
    TraceBench bench;
    bench.world.faults.failNth(call, 2, 5);
    for (int i = 0; i < 3; ++i) {
      bench.log.closeFile();
      bench.log.Trace(L"x");
    }
    bench.world.clock.setNow(Date{1e9});
    bench.log.Trace(L"a date that has no text");
    EXPECT_TRUE(bench.world.dialog.shown.empty());
    EXPECT_GE(bench.world.files.writes, 3) << call;
  }
}

TEST(DebugView, IsMadeOnFirstUseAndGetsTheBareMessages) {
  TraceBench bench(true);
  EXPECT_FALSE(bench.log.debugView().isMade());
  bench.log.Trace(L"one");
  ASSERT_EQ(bench.world.views.created.size(), 1U);
  const RecordingView& view = *bench.world.views.created.front();
  EXPECT_EQ(view.width, 80);
  EXPECT_EQ(view.lines, (std::vector<std::wstring>{L"Settings: C:\\host\\ORV.ini", L"one"}));
  bench.log.debugView().showModal();
  EXPECT_EQ(view.shown, 1);
  EXPECT_TRUE(bench.world.files.contents.empty());
}

class BrokenViews : public ReportViews {
 public:
  std::shared_ptr<ReportView> create(const Settings&) override { throw 1; }
};

TEST(DebugView, ThatCannotBeMadeIsDoneWithout) {
  TraceBench bench(true);
  BrokenViews views;
  TraceLog log({bench.world.clock, bench.world.folders, views, bench.world.files, windows1252(),
                bench.world.locale},
               bench.target);
  log.follow(Settings(bench.world.settings, bench.world.store, L"C:\\host"));
  log.Trace(L"x");
  EXPECT_FALSE(log.debugView().isMade());
}

}  // namespace
}  // namespace corvid
