// What the sessions of one thread share, and everything of the world around them.
#pragma once

#include "basic/code_page.h"
#include "basic/locale.h"
#include "exchange/process_state.h"
#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/message_dialog.h"
#include "platform/message_pump.h"
#include "platform/report_view.h"
#include "platform/settings.h"
#include "platform/sleep_calls.h"
#include "platform/trace.h"
#include "transport/transports.h"

namespace corvid {

// The seams, each with one Windows half and one test double. All outlive the thread's state, and
// file, store, folders, files, code page and locale serve every thread.
struct Environment {
  ProcessState& process;
  InitializationFile& file;
  UserSettings& store;
  SerialCalls& serial;
  SocketCalls& sockets;
  MessagePump& pump;
  MessageDialog& dialog;
  Folders& folders;
  AppendFiles& files;
  ReportViews& views;
  Clock& clock;
  SleepCalls& sleep;
  const CodePage& codePage;
  const LocaleSource& locale;
};

// One thread: a host's objects belong to the thread that made them.
class ThreadState {
 public:
  explicit ThreadState(const Environment& environment);

  // Readers for an object that is made now.
  [[nodiscard]] Settings currentSettings() const;

  [[nodiscard]] ProcessState& process() { return environment_.process; }
  [[nodiscard]] Transports& transports() { return transports_; }
  [[nodiscard]] TraceLog& trace() { return trace_; }
  [[nodiscard]] Clock& clock() { return environment_.clock; }
  [[nodiscard]] SleepCalls& sleep() { return environment_.sleep; }
  [[nodiscard]] MessagePump& pump() { return environment_.pump; }
  [[nodiscard]] MessageDialog& dialog() { return environment_.dialog; }
  [[nodiscard]] ReportViews& views() { return environment_.views; }
  [[nodiscard]] const CodePage& codePage() const { return environment_.codePage; }
  [[nodiscard]] Locale locale() const { return environment_.locale.current(); }

 private:
  Environment environment_;
  Transports transports_;
  TraceLog trace_;
};

}  // namespace corvid
