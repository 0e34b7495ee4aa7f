// The message loop and the shell's folders.
#include "windows/message_pump.h"

#include "windows/folders.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

namespace corvid {
namespace {

// A window without a desktop's picture; counts what reaches it.
class CountingWindow {
 public:
  CountingWindow()
      : window_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                nullptr)) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&received));
  }
  CountingWindow(const CountingWindow&) = delete;
  CountingWindow& operator=(const CountingWindow&) = delete;
  ~CountingWindow() { DestroyWindow(window_); }

  void post() const { PostMessageW(window_, WM_APP, 0, 0); }

  int count = 0;
  bool postsAgain = false;

 private:
  static LRESULT CALLBACK received(HWND window, UINT message, WPARAM wide, LPARAM data) {
    if (message != WM_APP) return DefWindowProcW(window, message, wide, data);
    const LONG_PTR owner = GetWindowLongPtrW(window, GWLP_USERDATA);
    auto* self = reinterpret_cast<CountingWindow*>(owner);  // NOLINT(performance-no-int-to-ptr)
    ++self->count;
    if (self->postsAgain) self->post();
    return 0;
  }

  HWND window_;
};

void emptyTheQueue() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) continue;
}

TEST(HostMessages, PendingOnesAreRunOnce) {
  CountingWindow window;
  emptyTheQueue();
  for (int i = 0; i < 3; ++i) window.post();
  WindowsMessagePump pump;
  EXPECT_FALSE(pump.yield());
  EXPECT_EQ(window.count, 3);
  EXPECT_FALSE(pump.yield());
  EXPECT_EQ(window.count, 3) << "returns at once when nothing is pending";
}

TEST(HostMessages, FloodDoesNotHoldTheYieldForEver) {
  CountingWindow window;
  window.postsAgain = true;
  window.post();
  WindowsMessagePump().yield();
  EXPECT_GT(window.count, 1);
  window.postsAgain = false;
  emptyTheQueue();
}

TEST(HostMessages, QuitIsLeftForTheHost) {
  emptyTheQueue();
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
