// Where trace lines go, and how they look.
#include "platform/trace.h"

#include "support/temp_folder.h"
#include "support/world.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

struct TraceBench {
  World world;
  TempFolder folder;
  Settings settings{world.settings, world.store};
  TraceLog log{{settings, world.clock, world.folders, world.views, windows1252(), world.locale}};
  std::wstring file = folder.file(L"trace.log");

  TraceBench() {
    log.isDebug = true;
    world.settings.set(kSessionSection, L"DEBUGFILE", file);
    world.clock.setNow(*parseDate(L"2026-03-04 05:06:07"));
    world.clock.setSeconds(18367.25);
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
    bench.log.Trace(L"<- ACK");
    EXPECT_EQ(bytesOf(bench.file), "04/03 05:06:07 " + item.text + " <- ACK\r\n") << item.reason;
  }
  TraceBench bench;
  bench.world.locale.locale = venezuelan();
  bench.log.Trace(L"x");
  EXPECT_EQ(bytesOf(bench.file), "04/03 05:06:07   18367,25 x\r\n") << "in the user's locale";
}

TEST(TraceFile, LinesAreAppendedInTheCodePage) {
  TraceBench bench;
  bench.log.Trace(L"Descripción");
  bench.log.Trace(L"\u4E2D\u20AC");
  EXPECT_EQ(bytesOf(bench.file),
            "04/03 05:06:07   18367.25 Descripci\xF3n\r\n"
            "04/03 05:06:07   18367.25 ?\x80\r\n");
}

TEST(TraceFile, LiesInTheDocumentsFolderUnlessNamed) {
  TraceBench bench;
  bench.world.settings.set(kSessionSection, L"DEBUGFILE", L"");
  bench.world.folders.documents = bench.folder.path().wstring();
  bench.log.Trace(L"x");
  EXPECT_EQ(bench.log.fileName(), bench.folder.path().wstring() + L"\\FPRINTER.LOG");
  EXPECT_EQ(bytesOf(bench.log.fileName()), "04/03 05:06:07   18367.25 x\r\n");
  // Natively the backslash is part of the name, so the file lies beside the folder.
  std::filesystem::remove(bench.log.fileName());
}

TEST(TraceFile, NameIsTakenOnce) {
  TraceBench bench;
  bench.log.Trace(L"x");
  bench.world.settings.set(kSessionSection, L"DEBUGFILE", bench.folder.file(L"other.log"));
  bench.log.Trace(L"y");
  EXPECT_EQ(bytesOf(bench.folder.file(L"other.log")), "");
  EXPECT_TRUE(bytesOf(bench.file).ends_with(" y\r\n"));
}

TEST(TraceFile, IsNotTouchedWhileTheTraceIsOff) {
  TraceBench bench;
  bench.log.isDebug = false;
  bench.log.debugInmediato = true;
  bench.log.Trace(L"x");
  EXPECT_FALSE(std::filesystem::exists(bench.file));
  EXPECT_FALSE(bench.log.debugView().isMade());
}

TEST(TraceFile, FailuresAreSilent) {
  TraceBench bench;
  bench.world.settings.set(kSessionSection, L"DEBUGFILE", bench.folder.path().wstring());
  bench.log.Trace(L"a folder is no file");
  bench.world.clock.setNow(Date{1e9});
  bench.log.Trace(L"a date that has no text");
  EXPECT_TRUE(bench.world.dialog.shown.empty());
}

TEST(DebugView, IsMadeOnFirstUseAndGetsTheBareMessages) {
  TraceBench bench;
  bench.log.debugInmediato = true;
  EXPECT_FALSE(bench.log.debugView().isMade());
  bench.log.Trace(L"one");
  bench.log.Trace(L"two");
  ASSERT_EQ(bench.world.views.created.size(), 1U);
  const RecordingView& view = *bench.world.views.created.front();
  EXPECT_EQ(view.width, 80);
  EXPECT_EQ(view.lines, (std::vector<std::wstring>{L"one", L"two"}));
  bench.log.debugView().showModal();
  EXPECT_EQ(view.shown, 1);
  EXPECT_FALSE(std::filesystem::exists(bench.file));
}

class BrokenViews : public ReportViews {
 public:
  std::shared_ptr<ReportView> create() override { throw 1; }
};

TEST(DebugView, ThatCannotBeMadeIsDoneWithout) {
  TraceBench bench;
  BrokenViews views;
  TraceLog log({bench.settings, bench.world.clock, bench.world.folders, views, windows1252(),
                bench.world.locale});
  log.isDebug = true;
  log.debugInmediato = true;
  log.Trace(L"x");
  EXPECT_FALSE(log.debugView().isMade());
}

}  // namespace
}  // namespace corvid
