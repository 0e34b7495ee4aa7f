#include "windows/message_pump.h"

#include <windows.h>

namespace corvid {
namespace {

// A host whose messages never end must not hold the exchange for ever.
constexpr int kMostMessages = 1000;

}  // namespace

bool WindowsMessagePump::yield() {
  MSG message;
  for (int i = 0; i < kMostMessages; ++i) {
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) return false;
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return true;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return false;
}

}  // namespace corvid
