// The library's process-wide state, and everything of the world around it.
#pragma once

#include "basic/code_page.h"
#include "basic/locale.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "platform/message_dialog.h"
#include "platform/message_pump.h"
#include "platform/report_view.h"
#include "platform/settings.h"
#include "platform/trace.h"
#include "transport/modcomm.h"
#include "transport/port_dump.h"
#include "transport/serial_calls.h"

#include <string>

namespace corvid {

// The seams, each with one Windows half and one test double. All outlive the library.
struct Environment {
  InitializationFile& file;
  UserSettings& store;
  SerialCalls& serial;
  MessagePump& pump;
  MessageDialog& dialog;
  Folders& folders;
  ReportViews& views;
  Clock& clock;
  const CodePage& codePage;
  const LocaleSource& locale;
};

// Shared by all session objects of the process; the last writer wins. One thread.
class ProcessState {
 public:
  explicit ProcessState(const Environment& environment);

  [[nodiscard]] Settings& settings() { return settings_; }
  [[nodiscard]] modCOMM& comm() { return comm_; }
  [[nodiscard]] TraceLog& trace() { return trace_; }
  [[nodiscard]] Clock& clock() { return environment_.clock; }
  [[nodiscard]] MessageDialog& dialog() { return environment_.dialog; }
  [[nodiscard]] ReportViews& views() { return environment_.views; }
  [[nodiscard]] const CodePage& codePage() const { return environment_.codePage; }
  [[nodiscard]] Locale locale() const { return environment_.locale.current(); }

  bool testMode = false;    // setting "TestMode" as the newest session read it
  std::wstring lastSerial;  // the serial number that Abrir learnt last

 private:
  Environment environment_;
  Settings settings_;
  PortDump dump_;
  modCOMM comm_;
  TraceLog trace_;
};

}  // namespace corvid
