// A screen for tests of windows, and ways to do without.
#pragma once

#include "windows/printer_device.h"

#include <windows.h>
// Needs windows.h first.
#include <richedit.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace corvid {

inline OpenedPrinter noPrinter(ContextKind) { return {}; }

// A device that measures by the screen and takes no documents.
inline OpenedPrinter screenAsPrinter(ContextKind) {
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

// Presses and releases the mouse at a held character of a text control. The press elsewhere comes
// first because two presses at one place are a double click, for the Wine control also where the
// first one went to a window that has gone.
inline void clickCharacter(HWND text, LRESULT heldPosition) {
  constexpr int kElsewhere = 100;
  POINTL place{};
  SendMessageW(text, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), heldPosition);
  const LPARAM at = MAKELPARAM(place.x + 1, place.y + 2);
  SendMessageW(text, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(place.x + kElsewhere, place.y + 2));
  SendMessageW(text, WM_LBUTTONDOWN, MK_LBUTTON, at);
  SendMessageW(text, WM_LBUTTONUP, 0, at);
}

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

// The thread's windows are refused as they are made, meanwhile.
class NoNewWindows {
 public:
  NoNewWindows() { hook_ = SetWindowsHookExW(WH_CBT, refuse, nullptr, GetCurrentThreadId()); }
  NoNewWindows(const NoNewWindows&) = delete;
  NoNewWindows& operator=(const NoNewWindows&) = delete;
  ~NoNewWindows() { UnhookWindowsHookEx(hook_); }

 private:
  static LRESULT CALLBACK refuse(int code, WPARAM, LPARAM) {
    return code == HCBT_CREATEWND ? 1 : 0;
  }

  HHOOK hook_ = nullptr;
};

// Does something to the next window that comes up on the thread, once its loop runs.
class Robot {
 public:
  explicit Robot(std::function<void(HWND)> act) {
    action_ = std::move(act);
    hook_ = SetWindowsHookExW(WH_CBT, activated, nullptr, GetCurrentThreadId());
  }
  Robot(const Robot&) = delete;
  Robot& operator=(const Robot&) = delete;
  ~Robot() { UnhookWindowsHookEx(hook_); }

 private:
  static LRESULT CALLBACK activated(int code, WPARAM wide, LPARAM data) {
    if (code == HCBT_ACTIVATE && action_) {
      auto* const window = reinterpret_cast<HWND>(wide);  // NOLINT(performance-no-int-to-ptr)
      SetTimer(window, kTimer, USER_TIMER_MINIMUM, timePassed);
    }
    return CallNextHookEx(nullptr, code, wide, data);
  }
  static void CALLBACK timePassed(HWND window, UINT, UINT_PTR timer, DWORD) {
    KillTimer(window, timer);
    if (action_) std::exchange(action_, nullptr)(window);
  }

  static constexpr UINT_PTR kTimer = 0x7070;
  static inline std::function<void(HWND)> action_;
  HHOOK hook_;
};

// Keys are down, meanwhile.
class HeldKeys {
 public:
  explicit HeldKeys(std::vector<int> keys) : keys_(std::move(keys)) { set(0x80); }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;
  ~HeldKeys() { set(0); }

 private:
  void set(BYTE state) const {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    for (const int key : keys_) keys[key] = state;
    SetKeyboardState(keys);
  }

  std::vector<int> keys_;
};

inline std::wstring clipboardText() {
  if (OpenClipboard(nullptr) == FALSE) return L"no clipboard";
  auto* const data = GetClipboardData(CF_UNICODETEXT);
  const auto* const held = static_cast<const wchar_t*>(GlobalLock(data));
  std::wstring text = held != nullptr ? held : L"no text";
  GlobalUnlock(data);
  CloseClipboard();
  return text;
}

// Of the characters that are selected in a text control.
inline CHARFORMATW formatOf(HWND text) {
  CHARFORMATW format{};
  format.cbSize = sizeof format;
  SendMessageW(text, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format;
}

inline void runPendingMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
}

}  // namespace corvid
