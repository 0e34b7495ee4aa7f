// Everything around a library, in memory.
#pragma once

#include "exchange/thread_state.h"
#include "platform/folders.h"
#include "platform/message_dialog.h"
#include "platform/message_pump.h"
#include "platform/report_view.h"
#include "support/error_of.h"
#include "support/fake_clock.h"
#include "support/fake_settings.h"
#include "support/memory_files.h"
#include "support/serial_double.h"
#include "support/socket_double.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvid {

struct ShownMessage {
  std::wstring text;
  std::wstring title;
  MessageIcon icon;
  auto operator<=>(const ShownMessage&) const = default;
};

class RecordingDialog : public MessageDialog {
 public:
  void show(const std::wstring& text, const std::wstring& title, MessageIcon icon) override {
    shown.push_back({text, title, icon});
    if (whenShown) whenShown();
  }
  std::vector<ShownMessage> shown;
  std::function<void()> whenShown;  // a message box serves the host's windows
};

// The host's message loop: what a test does there, and how long it takes.
class FakePump : public MessagePump {
 public:
  explicit FakePump(FakeClock& clock) : clock_(clock) {}
  bool yield() override {
    ++count;
    clock_.advance(seconds);
    if (whenYielded) whenYielded();
    return isQuitting;
  }
  int count = 0;
  double seconds = 0;
  bool isQuitting = false;
  std::function<void()> whenYielded;  // the host's own doings

 private:
  FakeClock& clock_;
};

class FakeFolders : public Folders {
 public:
  std::wstring SHgetFolder(int csidl) override {
    return csidl == kDocumentsFolder ? documents : L"";
  }
  std::wstring current() override { return currentFolder; }
  std::wstring documents = L"C:\\documents";
  std::wstring currentFolder = L"C:\\host";
};

class RecordingView : public ReportView {
 public:
  void SetReportWidth(std::int16_t newWidth) override { width = newWidth; }
  void Add(const std::wstring& line) override { lines.push_back(line); }
  void showModal() override { ++shown; }
  std::int16_t width = 0;
  std::vector<std::wstring> lines;
  int shown = 0;
};

class RecordingViews : public ReportViews {
 public:
  std::shared_ptr<ReportView> create(const Settings&) override {
    created.push_back(std::make_shared<RecordingView>());
    return created.back();
  }
  std::vector<std::shared_ptr<RecordingView>> created;
};

class FixedLocale : public LocaleSource {
 public:
  [[nodiscard]] Locale current() const override { return locale; }
  Locale locale;
};

[[nodiscard]] Locale venezuelan();

// One of each seam, and the surroundings made of them.
struct World {
  FakeClock clock;
  CallFaults faults;
  FakeSettings settings;
  FakeSettings::Store store{settings};
  SerialDouble serial{clock, faults};
  SocketDouble sockets{clock, faults};
  FakePump pump{clock};
  RecordingDialog dialog;
  FakeFolders folders;
  MemoryFiles files{faults};
  RecordingViews views;
  FixedLocale locale;
  ProcessState process{files, clock};

  [[nodiscard]] Environment environment() {
    return {process, settings, store, serial, sockets, pump,          dialog,
            folders, files,    views, clock,  clock,   windows1252(), locale};
  }
};

}  // namespace corvid
