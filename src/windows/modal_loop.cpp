#include "windows/modal_loop.h"

namespace corvid {

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
  disabled_.enable();
}

}  // namespace corvid
