// A screen for tests of windows, and ways to do without.
#pragma once

#include "windows/printer_device.h"

#include <windows.h>

namespace corvid {

inline OpenedPrinter noPrinter() { return {}; }

// A device that measures by the screen and takes no documents.
inline OpenedPrinter screenAsPrinter() {
  return {DeviceContext(CreateCompatibleDC(nullptr)), L"Screen"};
}

// The process has no desktop that a person could see, meanwhile.
class HiddenDesktop {
 public:
  HiddenDesktop() { SetProcessWindowStation(hidden_); }
  HiddenDesktop(const HiddenDesktop&) = delete;
  HiddenDesktop& operator=(const HiddenDesktop&) = delete;
  ~HiddenDesktop() {
    SetProcessWindowStation(before_);
    CloseWindowStation(hidden_);
  }

 private:
  HWINSTA before_ = GetProcessWindowStation();
  HWINSTA hidden_ = CreateWindowStationW(nullptr, 0, GENERIC_ALL, nullptr);
};

// A plain visible window, as a host's own.
class HostWindow {
 public:
  HostWindow()
      : window_(CreateWindowExW(0, L"STATIC", L"host", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200,
                                nullptr, nullptr, nullptr, nullptr)) {}
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow() { DestroyWindow(window_); }

  [[nodiscard]] HWND get() const { return window_; }

 private:
  HWND window_;
};

// The control key is down, meanwhile.
class HeldControlKey {
 public:
  HeldControlKey() { set(0x80); }
  HeldControlKey(const HeldControlKey&) = delete;
  HeldControlKey& operator=(const HeldControlKey&) = delete;
  ~HeldControlKey() { set(0); }

 private:
  static void set(BYTE state) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = state;
    SetKeyboardState(keys);
  }
};

inline void runPendingMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
}

}  // namespace corvid
