// The session trace: one line per step of the exchange, to a file or to the debug view.
#pragma once

#include "basic/code_page.h"
#include "basic/locale.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/pending_view.h"
#include "platform/settings.h"

#include <string>
#include <string_view>

namespace corvid {

// What the trace needs of the world around it; all outlive it.
struct TraceEnvironment {
  const Settings& settings;
  Clock& clock;
  Folders& folders;
  ReportViews& views;
  const CodePage& codePage;
  const LocaleSource& locale;
};

// Process-wide. The flags are those of the session object created last.
class TraceLog {
 public:
  explicit TraceLog(const TraceEnvironment& environment) : environment_(environment) {}

  bool isDebug = false;         // setting "IsDebug": nothing is traced while it is off
  bool debugInmediato = false;  // setting "DebugInmediato": to the debug view instead of the file

  // Writes one line; no failure is ever reported. The file is opened and closed for each line, so
  // that it is complete even if the host dies.
  void Trace(std::wstring_view message) noexcept;

  // Made when the first line goes there. Shown by the session's Cerrar.
  [[nodiscard]] PendingView& debugView() { return debugView_; }
  // Empty until the first line went to the file.
  [[nodiscard]] const std::wstring& fileName() const { return fileName_; }

 private:
  void addToView(std::wstring_view message);
  void appendToFile(std::wstring_view message);

  TraceEnvironment environment_;
  PendingView debugView_;
  std::wstring fileName_;
};

}  // namespace corvid
