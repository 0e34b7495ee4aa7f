// What a modal showing does to the host's windows and messages.
#include "windows/modal_loop.h"

#include "desktop.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(ModalLoops, DisableTheHostsWindowsAndEnableThemAgain) {
  const HostWindow enabled;
  const HostWindow disabled;
  EnableWindow(disabled.get(), FALSE);
  {
    ModalLoop loop({enabled.get(), disabled.get(), enabled.get(), nullptr});
    EXPECT_EQ(IsWindowEnabled(enabled.get()), FALSE);
    loop.end();
    EXPECT_NE(IsWindowEnabled(enabled.get()), FALSE);
    EXPECT_EQ(IsWindowEnabled(disabled.get()), FALSE) << "as it was";
    EnableWindow(enabled.get(), FALSE);
  }
  EXPECT_EQ(IsWindowEnabled(enabled.get()), FALSE) << "ended once";
}

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

}  // namespace
}  // namespace corvid
