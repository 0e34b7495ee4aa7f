// The process's state, shared by all sessions, and everything of the world around it.
#pragma once

#include "basic/code_page.h"
#include "basic/locale.h"
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

#include <string>

namespace corvid {

// The seams, each with one Windows half and one test double. All outlive the process's state.
struct Environment {
  InitializationFile& file;
  UserSettings& store;
  SerialCalls& serial;
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

// The last writer wins. One thread.
class ProcessState {
 public:
  explicit ProcessState(const Environment& environment);

  // Readers for an object that is made now.
  [[nodiscard]] Settings currentSettings() const;

  [[nodiscard]] Transports& transports() { return transports_; }
  [[nodiscard]] TraceLog& trace() { return trace_; }
  [[nodiscard]] Clock& clock() { return environment_.clock; }
  [[nodiscard]] SleepCalls& sleep() { return environment_.sleep; }
  [[nodiscard]] MessagePump& pump() { return environment_.pump; }
  [[nodiscard]] MessageDialog& dialog() { return environment_.dialog; }
  [[nodiscard]] ReportViews& views() { return environment_.views; }
  [[nodiscard]] const CodePage& codePage() const { return environment_.codePage; }
  [[nodiscard]] Locale locale() const { return environment_.locale.current(); }

  bool testMode = false;    // setting "TestMode" as the newest session read it
  std::wstring lastSerial;  // the serial number that Abrir learnt last

 private:
  Environment environment_;
  Transports transports_;
  TraceLog trace_;
};

}  // namespace corvid
