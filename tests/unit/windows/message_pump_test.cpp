// The message loop and the shell's folders.
#include "windows/message_pump.h"

#include "desktop.h"
#include "windows/folders.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

namespace corvid {
namespace {

int received = 0;
bool postsAgain = false;

LRESULT CALLBACK count(HWND window, UINT message, WPARAM wide, LPARAM data) {
  if (message != WM_APP) return DefWindowProcW(window, message, wide, data);
  ++received;
  if (postsAgain) PostMessageW(window, WM_APP, 0, 0);
  return 0;
}

// Counts what reaches it.
class CountingWindow : public HostWindow {
 public:
  CountingWindow() {
    SetWindowLongPtrW(get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(count));
    received = 0;
  }
  void post() const { PostMessageW(get(), WM_APP, 0, 0); }
};

TEST(HostMessages, PendingOnesAreRunOnce) {
  const CountingWindow window;
  runPendingMessages();
  for (int i = 0; i < 3; ++i) window.post();
  WindowsMessagePump pump;
  EXPECT_FALSE(pump.yield());
  EXPECT_EQ(received, 3);
  EXPECT_FALSE(pump.yield());
  EXPECT_EQ(received, 3) << "returns at once when nothing is pending";
}

TEST(HostMessages, FloodDoesNotHoldTheYieldForEver) {
  const CountingWindow window;
  postsAgain = true;
  window.post();
  EXPECT_FALSE(WindowsMessagePump().yield());
  EXPECT_GT(received, 1);
  postsAgain = false;
  runPendingMessages();
}

TEST(HostMessages, QuitIsLeftForTheHost) {
  runPendingMessages();
  PostQuitMessage(42);
  EXPECT_TRUE(WindowsMessagePump().yield());
  EXPECT_TRUE(WindowsMessagePump().yield()) << "as long as it waits";
  MSG message{};
  ASSERT_NE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE), FALSE);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 42U);
}

TEST(Folders, DocumentsAndCurrentFolderExist) {
  WindowsFolders folders;
  EXPECT_EQ(folders.current(), std::filesystem::current_path().wstring());
  const std::wstring documents = folders.SHgetFolder(kDocumentsFolder);
  EXPECT_TRUE(std::filesystem::is_directory(documents)) << testing::PrintToString(documents);
  EXPECT_EQ(folders.SHgetFolder(0x7FFF), L"") << "no such folder";
}

}  // namespace
}  // namespace corvid
