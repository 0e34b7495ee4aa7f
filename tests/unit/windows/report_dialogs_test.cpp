// The dialogs of a report window.
#include "windows/report_dialogs.h"

#include "desktop.h"
#include "support/temp_folder.h"
#include "windows/input_dialog.h"
#include "windows/message_box.h"
#include "windows/window_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>
#include <utility>

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

constexpr int kFileName = 0x47C;  // cmb13, in the system's own dialog
constexpr int kPrompt = 100;
constexpr int kEntry = 101;

// In pixels of the dialog's inside.
bool standsAt(HWND dialog, int part, RECT dialogUnits) {
  RECT place{};
  GetWindowRect(GetDlgItem(dialog, part), &place);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
  RECT wanted = dialogUnits;
  MapDialogRect(dialog, &wanted);
  const auto size = [](const RECT& r) { return SIZE{r.right - r.left, r.bottom - r.top}; };
  RECT wantedSize{0, 0, size(dialogUnits).cx, size(dialogUnits).cy};
  MapDialogRect(dialog, &wantedSize);
  return std::tuple(place.left, place.top, size(place).cx, size(place).cy) ==
         std::tuple(wanted.left, wanted.top, wantedSize.right, wantedSize.bottom);
}

TEST(InputDialog, GivesWhatWasAccepted) {
  for (const WPARAM button : {WPARAM{IDOK}, WPARAM{IDCANCEL}}) {
    std::wstring offered;
    const Robot robot([&](HWND dialog) {
      offered = windowText(GetDlgItem(dialog, kEntry));
      SetDlgItemTextW(dialog, kEntry, L"caf\u00E9");
      PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(kEntry, EN_CHANGE), 0);
      PostMessageW(dialog, WM_COMMAND, button, 0);
    });
    EXPECT_EQ(askForText(nullptr, L"prompt", L"title", L"last"),
              button == IDOK ? L"caf\u00E9" : L"");
    EXPECT_EQ(offered, L"last");
  }
}

TEST(InputDialog, StandsInOrder) {
  const Robot robot([](HWND dialog) {
    EXPECT_EQ(windowText(dialog), L"title");
    EXPECT_EQ(windowText(GetDlgItem(dialog, kPrompt)), L"prompt & more");
    RECT inside{};
    GetClientRect(dialog, &inside);
    RECT wanted{0, 0, 220, 66};
    MapDialogRect(dialog, &wanted);
    EXPECT_NE(EqualRect(&inside, &wanted), FALSE);
    // Margins of 7; buttons of 50 by 14, 4 apart.
    EXPECT_TRUE(standsAt(dialog, kPrompt, {7, 7, 213, 17}));
    EXPECT_TRUE(standsAt(dialog, kEntry, {7, 20, 213, 34}));
    EXPECT_TRUE(standsAt(dialog, IDOK, {109, 45, 159, 59}));
    EXPECT_TRUE(standsAt(dialog, IDCANCEL, {163, 45, 213, 59}));
    for (const int part : {kPrompt, IDOK, IDCANCEL}) {
      EXPECT_EQ(GetWindowLongPtrW(GetDlgItem(dialog, part), GWL_EXSTYLE) & WS_EX_DLGMODALFRAME, 0);
    }
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  });
  EXPECT_EQ(askForText(nullptr, L"prompt & more", L"title", L"accepted"), L"");
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

TEST(MessageBoxes, SayWhatTheyAreGiven) {
  constexpr int kText = 0xFFFF;  // the system's own number of it
  std::wstring said;
  const auto read = [&](HWND box) {
    said = windowText(box) + L": " + windowText(GetDlgItem(box, kText));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  };
  const HostWindow host;
  WindowsReportDialogs dialogs([&] { return host.get(); }, noPrinter);
  WindowsMessageDialog boxes;
  using enum MessageIcon;
  const std::pair<std::function<void()>, std::wstring> cases[] = {
      {[&] { dialogs.message(L"text", L"title", None); }, L"title: text"},
      {[&] { boxes.show(L"text", L"", Critical); }, L"PrinterFiscalCorvid: text"},
      {[&] { dialogs.ask(L"text", L"title"); }, L"title: text"},
  };
  for (const auto& [show, words] : cases) {
    const Robot robot(read);
    show();
    EXPECT_EQ(said, words);
  }
}

TEST(MessageBoxes, AreForDesktopsThatSomebodySees) {
  EXPECT_TRUE(isInteractive({true, 1}));
  EXPECT_FALSE(isInteractive({true, 0})) << "services";
  EXPECT_FALSE(isInteractive({false, 1})) << "an invisible station";
}

int CALLBACK takeFixed(const LOGFONTW* font, const TEXTMETRICW*, DWORD type, LPARAM name) {
  if (type != TRUETYPE_FONTTYPE || (font->lfPitchAndFamily & 3) != FIXED_PITCH) return 1;
  *reinterpret_cast<std::wstring*>(name) = font->lfFaceName;
  return 0;
}

// Of one pitch, and any size.
std::wstring fixedFont() {
  std::wstring name;
  LOGFONTW any{};
  any.lfCharSet = ANSI_CHARSET;
  const DeviceContext screen(CreateCompatibleDC(nullptr));
  EnumFontFamiliesExW(screen.get(), &any, takeFixed, reinterpret_cast<LPARAM>(&name), 0);
  return name;
}

TEST(ReportDialogs, FontThatIsAcceptedIsTheOneThatWasOffered) {
  WindowsReportDialogs dialogs([] { return HWND{}; }, screenAsPrinter);
  for (const FontChoice& font :
       {FontChoice{fixedFont(), 10, false, false}, FontChoice{fixedFont(), 14, true, true}}) {
    for (const WPARAM button : {WPARAM{IDOK}, WPARAM{IDCANCEL}}) {
      const Robot robot([button](HWND dialog) { PostMessageW(dialog, WM_COMMAND, button, 0); });
      EXPECT_EQ(dialogs.chooseFont(font), button == IDOK ? std::optional(font) : std::nullopt);
    }
  }
}

TEST(ReportDialogs, SavedNameGetsItsExtensionInTheFolderThatWasAskedFor) {
  const TempFolder folder;
  const HostWindow host;
  const std::filesystem::path before = std::filesystem::current_path();
  WindowsReportDialogs dialogs([&] { return host.get(); }, screenAsPrinter);
  for (const WPARAM button : {WPARAM{IDOK}, WPARAM{IDCANCEL}}) {
    const Robot robot([&](HWND dialog) {
      EXPECT_EQ(windowText(dialog), L"title");
      EXPECT_EQ(GetWindow(dialog, GW_OWNER), host.get());
      SetDlgItemTextW(dialog, kFileName, L"report");
      PostMessageW(dialog, WM_COMMAND, button, 0);
    });
    const auto path = dialogs.chooseSaveFile(
        {L"title", L".txt", folder.path().wstring(), L"Archivos de Texto", L"*.txt"});
    EXPECT_EQ(path, button == IDOK ? std::optional(folder.file(L"report.txt")) : std::nullopt);
    EXPECT_EQ(std::filesystem::current_path(), before) << "the host's own";
  }
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
