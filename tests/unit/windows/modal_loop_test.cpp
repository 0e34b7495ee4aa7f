// What a modal showing does to the host's windows and messages.
#include "windows/modal_loop.h"

#include "desktop.h"

#include <gtest/gtest.h>

#include <thread>

namespace corvid {
namespace {

TEST(ModalLoops, LeaveTheQuitMessageToTheHost) {
  runPendingMessages();
  ModalLoop loop({});
  PostQuitMessage(7);
  loop.run();
  MSG message{};
  ASSERT_NE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE), FALSE);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 7U);
}

constexpr UINT kEnd = WM_APP;
ModalLoop* theLoop = nullptr;

LRESULT CALLBACK endLoop(HWND window, UINT message, WPARAM wide, LPARAM data) {
  if (message == kEnd) theLoop->end();
  return DefWindowProcW(window, message, wide, data);
}

// Such a message does not come out of the queue: the loop waited for ever.
TEST(ModalLoops, EndInsideAMessageThatAnotherThreadSends) {
  const HostWindow host;
  SetWindowLongPtrW(host.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(endLoop));
  runPendingMessages();
  ModalLoop loop({});
  theLoop = &loop;
  std::thread sender([&] { SendMessageW(host.get(), kEnd, 0, 0); });
  loop.run();
  sender.join();
}

}  // namespace
}  // namespace corvid
