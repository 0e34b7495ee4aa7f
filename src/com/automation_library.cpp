#include "com/automation_library.h"

#include "com/host_thread.h"
#include "exchange/thread_state.h"
#include "windows/append_files.h"
#include "windows/clock.h"
#include "windows/folders.h"
#include "windows/locale.h"
#include "windows/message_box.h"
#include "windows/message_pump.h"
#include "windows/report_views.h"
#include "windows/serial_calls.h"
#include "windows/settings_sources.h"
#include "windows/socket_calls.h"

#include <algorithm>
#include <list>
#include <memory>
#include <mutex>
#include <utility>

namespace corvid {
namespace {

// Without a state of their own: any thread may call them.
struct ProcessParts {
  WindowsCodePage codePage;
  WindowsLocale locale;
  WindowsClock clock;
  WindowsInitializationFile file;
  WindowsUserSettings store;
  WindowsFolders folders;
  WindowsAppendFiles files;
  ProcessState state{files, clock};
};

// In the order of their needs.
struct ThreadParts {
  explicit ThreadParts(ProcessParts& process)
      : state({process.state, process.file, process.store, serial, sockets, pump, dialog,
               process.folders, process.files, views, process.clock, sleep, process.codePage,
               process.locale}) {}

  const HostThread thread{GetCurrentThreadId()};
  WindowsSleepCalls sleep;
  WindowsSerialCalls serial;
  WindowsSocketCalls sockets;
  WindowsMessagePump pump;
  WindowsMessageDialog dialog;
  WindowsReportViews views;
  ThreadState state;
};

struct States {
  std::unique_ptr<ProcessParts> process;
  std::list<ThreadParts> threads;
};

std::mutex theGate;
// No owner: at the end of a process that never asked whether to unload, windows and printers may
// not be touched any more.
States* theStates = nullptr;

}  // namespace

ThreadState& AutomationLibrary::here() {
  const std::lock_guard lock(theGate);
  if (theStates == nullptr) theStates = std::make_unique<States>().release();
  if (!theStates->process) theStates->process = std::make_unique<ProcessParts>();
  auto& threads = theStates->threads;
  const auto found =
      std::ranges::find_if(threads, [](const auto& one) { return one.thread.isCalling(); });
  if (found != threads.end()) return found->state;
  return threads.emplace_back(*theStates->process).state;
}

bool AutomationLibrary::discard() noexcept {
  States gone;  // destroyed after the lock is given back: windows run their thread's code
  const std::lock_guard lock(theGate);
  if (theStates == nullptr) return true;
  auto& threads = theStates->threads;
  for (auto next = threads.begin(); next != threads.end();) {
    const auto one = next++;
    if (one->thread.isCalling() || one->thread.hasEnded()) {
      gone.threads.splice(gone.threads.end(), threads, one);
    }
  }
  if (!threads.empty()) return false;
  gone.process = std::move(theStates->process);
  delete std::exchange(theStates, nullptr);
  return true;
}

}  // namespace corvid
