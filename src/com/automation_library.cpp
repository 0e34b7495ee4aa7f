#include "com/automation_library.h"

#include "exchange/process_state.h"
#include "windows/append_files.h"
#include "windows/clock.h"
#include "windows/folders.h"
#include "windows/locale.h"
#include "windows/message_box.h"
#include "windows/message_pump.h"
#include "windows/report_views.h"
#include "windows/serial_calls.h"
#include "windows/settings_sources.h"

#include <memory>
#include <mutex>
#include <utility>

namespace corvid {

// In the order of their needs.
struct AutomationLibrary::Parts {
  const DWORD thread = GetCurrentThreadId();
  WindowsCodePage codePage;
  WindowsLocale locale;
  WindowsClock clock;
  WindowsSleepCalls sleep;
  WindowsInitializationFile file;
  WindowsUserSettings store;
  WindowsSerialCalls serial;
  WindowsMessagePump pump;
  WindowsMessageDialog dialog;
  WindowsFolders folders;
  WindowsAppendFiles files;
  WindowsReportViews views;
  ProcessState process{
      {file, store, serial, pump, dialog, folders, files, views, clock, sleep, codePage, locale}};
};

namespace {

std::mutex theGate;
// No owner: at the end of a process that never asked whether to unload, windows and printers may
// not be touched any more.
AutomationLibrary* theInstance = nullptr;

}  // namespace

AutomationLibrary::AutomationLibrary() : parts_(std::make_unique<Parts>()) {}

AutomationLibrary::~AutomationLibrary() = default;

AutomationLibrary& AutomationLibrary::instance() {
  const std::lock_guard lock(theGate);
  if (theInstance == nullptr) theInstance = std::make_unique<AutomationLibrary>().release();
  return *theInstance;
}

bool AutomationLibrary::discard() noexcept {
  const std::lock_guard lock(theGate);
  if (theInstance == nullptr) return true;
  if (theInstance->parts_->thread != GetCurrentThreadId()) return false;
  const std::unique_ptr<AutomationLibrary> gone(std::exchange(theInstance, nullptr));
  return true;
}

ProcessState& AutomationLibrary::process() { return parts_->process; }

}  // namespace corvid
