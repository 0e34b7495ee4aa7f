// The library's process-wide state, and everything of the world around it.
#pragma once

#include "basic/code_page.h"
#include "basic/locale.h"
#include "port/clock.h"
#include "port/host.h"
#include "port/modcomm.h"
#include "port/port_dump.h"
#include "port/report_view.h"
#include "port/serial_calls.h"
#include "port/settings.h"
#include "port/trace.h"

#include <string>

namespace corvid {

// The seams, each with one Windows half and one test double. All outlive the library.
struct Surroundings {
  InitializationFile& file;
  UserSettings& store;
  SerialCalls& serial;
  HostYield& host;
  MessageDialog& dialog;
  ShellFolders& folders;
  ReportViews& views;
  Clock& clock;
  const CodePage& codePage;
  const LocaleSource& locale;
};

// Shared by all session objects of the process; the last writer wins. One thread.
class Library {
 public:
  explicit Library(const Surroundings& surroundings);

  [[nodiscard]] Settings& settings() { return settings_; }
  [[nodiscard]] modCOMM& comm() { return comm_; }
  [[nodiscard]] TraceLog& trace() { return trace_; }
  [[nodiscard]] Clock& clock() { return around_.clock; }
  [[nodiscard]] MessageDialog& dialog() { return around_.dialog; }
  [[nodiscard]] ReportViews& views() { return around_.views; }
  [[nodiscard]] const CodePage& codePage() const { return around_.codePage; }
  [[nodiscard]] Locale locale() const { return around_.locale.current(); }

  bool testMode = false;    // setting "TestMode" as the newest session read it
  std::wstring lastSerial;  // the serial number that Abrir learnt last

 private:
  Surroundings around_;
  Settings settings_;
  PortDump dump_;
  modCOMM comm_;
  TraceLog trace_;
};

}  // namespace corvid
