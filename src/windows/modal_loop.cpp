#include "windows/modal_loop.h"

namespace corvid {

ModalLoop::ModalLoop(const std::vector<HWND>& windows) {
  for (auto* const window : windows) {
    if (IsWindow(window) == FALSE || IsWindowEnabled(window) == FALSE) continue;
    EnableWindow(window, FALSE);
    disabled_.push_back(window);
  }
}

void ModalLoop::run() const {
  MSG message{};
  while (!ended_) {
    const BOOL received = GetMessageW(&message, nullptr, 0, 0);
    if (received == 0) PostQuitMessage(static_cast<int>(message.wParam));
    if (received <= 0) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

// A message that another thread sends does not wake the wait of run(); a posted one does.
void ModalLoop::end() {
  if (!ended_) PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
  ended_ = true;
  for (auto* const window : disabled_) EnableWindow(window, TRUE);
  disabled_.clear();
}

}  // namespace corvid
