// Showing a window modally in a process whose other windows are the host's.
#pragma once

#include "windows/disabled_windows.h"

#include <windows.h>

#include <vector>

namespace corvid {

// Disables the windows that it is given, as DisabledWindows does.
class ModalLoop {
 public:
  explicit ModalLoop(const std::vector<HWND>& windows) : disabled_(windows) {}
  ModalLoop(const ModalLoop&) = delete;
  ModalLoop& operator=(const ModalLoop&) = delete;
  ~ModalLoop() { end(); }

  // Runs the thread's messages until end() was called, or until a quit message comes, which is put
  // back for the host's own loop.
  void run() const;
  // Enables the windows; may be called again.
  void end();

 private:
  bool ended_ = false;
  DisabledWindows disabled_;
};

}  // namespace corvid
