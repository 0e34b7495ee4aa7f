#include "registration/automation_library.h"

#include "records/status_queries.h"
#include "registration/line_collector.h"
#include "session/library.h"
#include "windows/clock.h"
#include "windows/host.h"
#include "windows/locale.h"
#include "windows/serial_calls.h"
#include "windows/settings_sources.h"

#include <memory>
#include <mutex>

namespace corvid {

// In the order of their needs.
struct AutomationLibrary::Parts {
  WindowsCodePage codePage;
  WindowsLocale locale;
  WindowsClock clock;
  WindowsInitializationFile file{codePage};
  WindowsUserSettings store;
  WindowsSerialCalls serial;
  WindowsHostYield host;
  WindowsMessageDialog dialog;
  WindowsShellFolders folders{codePage};
  LineCollectors views;
  RecordStatusSource status;
  Library library{{file, store, serial, host, dialog, folders, views, clock, codePage, locale}};
};

namespace {

std::mutex theGate;
std::unique_ptr<AutomationLibrary> theInstance;

}  // namespace

AutomationLibrary::AutomationLibrary() : parts_(std::make_unique<Parts>()) {}

AutomationLibrary::~AutomationLibrary() = default;

AutomationLibrary& AutomationLibrary::instance() {
  const std::lock_guard lock(theGate);
  if (!theInstance) theInstance = std::make_unique<AutomationLibrary>();
  return *theInstance;
}

void AutomationLibrary::discard() noexcept {
  const std::lock_guard lock(theGate);
  theInstance.reset();
}

Library& AutomationLibrary::library() { return parts_->library; }

StatusSource& AutomationLibrary::statusSource() { return parts_->status; }

}  // namespace corvid
