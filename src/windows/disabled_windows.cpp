#include "windows/disabled_windows.h"

namespace corvid {
namespace {

BOOL CALLBACK collect(HWND window, LPARAM windows) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the pointer on as a number
  auto* const visible = reinterpret_cast<std::vector<HWND>*>(windows);
  if (IsWindowVisible(window) != FALSE) visible->push_back(window);
  return TRUE;
}

}  // namespace

std::vector<HWND> threadWindowsBut(HWND owner) {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&windows));
  std::erase(windows, owner);
  return windows;
}

DisabledWindows::DisabledWindows(const std::vector<HWND>& windows) {
  for (auto* const window : windows) {
    if (IsWindow(window) == FALSE || IsWindowEnabled(window) == FALSE) continue;
    EnableWindow(window, FALSE);
    disabled_.push_back(window);
  }
}

void DisabledWindows::enable() {
  for (auto* const window : disabled_) EnableWindow(window, TRUE);
  disabled_.clear();
}

}  // namespace corvid
