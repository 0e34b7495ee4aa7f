// The session trace: one line per step of the exchange, to a file or to the debug view.
#pragma once

#include "basic/code_page.h"
#include "basic/locale.h"
#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/pending_view.h"
#include "platform/settings.h"

#include <memory>
#include <optional>
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

// Process-wide; follows the session object created last.
class TraceLog {
 public:
  explicit TraceLog(const TraceEnvironment& environment) : environment_(environment) {}

  // Takes over the newest session's settings: "IsDebug" (nothing is traced while it is off),
  // "DebugInmediato" (to the debug view instead of the file), and the file's name with the next
  // line, which tells the settings file first.
  void follow(const Settings& settings);

  [[nodiscard]] bool isOn() const noexcept { return isDebug_; }
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
  void closeFile() noexcept { file_.reset(); }

  // Made when the first line goes there. Shown by the session's Cerrar.
  [[nodiscard]] PendingView& debugView() { return debugView_; }
  // Empty until the first line went to the file.
  [[nodiscard]] const std::wstring& fileName() const { return fileName_; }

 private:
  void write(std::wstring_view message);
  void addToView(std::wstring_view message);
  void appendToFile(std::wstring_view message);
  [[nodiscard]] bool openFile();

  TraceEnvironment environment_;
  std::optional<Settings> settings_;
  bool isDebug_ = false;
  bool debugInmediato_ = false;
  bool toldSettings_ = false;
  PendingView debugView_;
  std::wstring fileName_;
  std::unique_ptr<AppendFile> file_;
};

}  // namespace corvid
