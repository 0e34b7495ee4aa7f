// The session trace: one line per step of the exchange, to a file or to the debug view.
#pragma once

#include "basic/code_page.h"
#include "basic/locale.h"
#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/pending_view.h"
#include "platform/settings.h"
#include "platform/trace_file.h"

#include <string>
#include <string_view>
#include <utility>

namespace corvid {

// What the trace needs of the world around it; all outlive it.
struct TraceEnvironment {
  Clock& clock;
  Folders& folders;
  ReportViews& views;
  AppendFiles& files;
  const CodePage& codePage;
  const LocaleSource& locale;
};

// One thread's way to the process's trace, with a debug view of its own.
class TraceLog {
 public:
  // The file outlives it.
  TraceLog(const TraceEnvironment& environment, TraceFile& file)
      : environment_(environment), file_(file) {}

  // Takes over the newest session's settings for all threads: "IsDebug" (nothing is traced while
  // it is off), "DebugInmediato" (to the debug view instead of the file), and the file's name with
  // the next line, which tells the settings file first.
  void follow(const Settings& settings) { file_.follow(settings); }

  [[nodiscard]] bool isOn() const noexcept { return file_.isOn(); }
  // Writes one line; no failure is ever reported. The file stays open between lines, each of which
  // is one write, so that none is lost when the host dies.
  void Trace(std::wstring_view message) noexcept;
  // The same, but the words are only made while the trace is on.
  template <class Words>
  void traceWith(Words&& words) noexcept {
    if (!isOn()) return;
    try {
      Trace(std::forward<Words>(words)());
    } catch (...) {  // NOLINT(bugprone-empty-catch): as in Trace
    }
  }
  // Closes the file; the next line opens it again.
  void closeFile() noexcept { file_.close(); }

  // Made when the first line goes there. Shown by the session's Cerrar.
  [[nodiscard]] PendingView& debugView() { return debugView_; }
  // Empty until the first line went to the file.
  [[nodiscard]] std::wstring fileName() const { return file_.name(); }

 private:
  void write(std::wstring_view message, const TraceFile::Plan& plan);
  void addToView(std::wstring_view message, const Settings& settings);
  void appendToFile(std::wstring_view message);

  TraceEnvironment environment_;
  TraceFile& file_;
  PendingView debugView_;
};

}  // namespace corvid
