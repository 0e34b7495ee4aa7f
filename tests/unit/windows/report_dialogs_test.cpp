// The dialogs of a report window.
#include "windows/report_dialogs.h"

#include "desktop.h"
#include "windows/input_dialog.h"
#include "windows/message_box.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(ReportDialogs, ReturnAtOnceWhereNobodySeesThem) {
  WindowsReportDialogs dialogs([] { return HWND{}; }, screenAsPrinter);
  const HiddenDesktop hidden;
  dialogs.message(L"text", L"", MessageIcon::Exclamation);
  EXPECT_EQ(dialogs.ask(L"text", L""), Answer::Yes);
  EXPECT_EQ(dialogs.input(L"prompt", L"title", L"initial"), L"");
  EXPECT_EQ(dialogs.chooseFont({L"Courier New", 10, false, false}), std::nullopt);
  EXPECT_EQ(dialogs.chooseSaveFile({L"title", L".txt", L"", L"Text", L"*.txt"}), std::nullopt);
}

// Does something to the next dialog that the thread shows, once its controls are there.
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
      auto* const dialog = reinterpret_cast<HWND>(wide);  // NOLINT(performance-no-int-to-ptr)
      std::exchange(action_, nullptr)(dialog);
    }
    return CallNextHookEx(nullptr, code, wide, data);
  }

  static inline std::function<void(HWND)> action_;
  HHOOK hook_;
};

constexpr int kEntry = 101;

TEST(InputDialog, GivesWhatWasAccepted) {
  for (const WPARAM button : {WPARAM{IDOK}, WPARAM{IDCANCEL}}) {
    std::wstring offered;
    const Robot robot([&](HWND dialog) {
      offered = textOf(GetDlgItem(dialog, kEntry));
      SetDlgItemTextW(dialog, kEntry, L"caf\u00E9");
      PostMessageW(dialog, WM_COMMAND, button, 0);
    });
    EXPECT_EQ(askForText(nullptr, L"prompt", L"title", L"last"),
              button == IDOK ? L"caf\u00E9" : L"");
    EXPECT_EQ(offered, L"last");
  }
}

// A click on another window of the host's, while a box waits, would start a second command. (That a
// box without owner stays on top does not show here: Wine leaves the flag aside.)
TEST(MessageBoxes, KeepTheThreadsWindowsFromInput) {
  const HostWindow owner;
  const HostWindow other;
  for (auto* const ownerOrNone : {owner.get(), HWND{}}) {
    bool isModal = false;
    const Robot robot([&](HWND box) {
      isModal = IsWindowEnabled(owner.get()) == FALSE && IsWindowEnabled(other.get()) == FALSE;
      PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    showMessageBox(ownerOrNone, L"text", L"title", MB_OK, MessageIcon::None);
    EXPECT_TRUE(isModal) << (ownerOrNone == nullptr ? "without owner" : "with owner");
    EXPECT_NE(IsWindowEnabled(other.get()), FALSE) << "again";
  }
}

TEST(MessageBoxes, AreForDesktopsThatSomebodySees) {
  EXPECT_TRUE(isInteractive({true, 1}));
  EXPECT_FALSE(isInteractive({true, 0})) << "services";
  EXPECT_FALSE(isInteractive({false, 1})) << "an invisible station";
}

TEST(ReportDialogs, NoIsToldFromYes) {
  WindowsReportDialogs dialogs([] { return HWND{}; }, noPrinter);
  for (const int button : {IDYES, IDNO}) {
    const Robot robot(
        [button](HWND box) { PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0); });
    EXPECT_EQ(dialogs.ask(L"text", L"title") == Answer::No, button == IDNO);
  }
}

}  // namespace
}  // namespace corvid
