// The preview window as the system shows it. Needs a screen, and nobody at it.
#include "windows/quick_view_form.h"

#include "basic/run_time_error.h"
#include "desktop.h"
#include "support/error_of.h"
#include "support/fake_settings.h"
#include "support/seeds.h"
#include "windows/report_views.h"
#include "windows/twips.h"
#include "windows/window_text.h"

#include <gtest/gtest.h>
#include <windows.h>
// Needs windows.h first.
#include <commctrl.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvid {
namespace {

using Clicks = std::vector<std::pair<std::wstring, std::int32_t>>;

class RecordingHost : public FormEvents {
 public:
  bool raiseReportClicked(const std::wstring& line, std::int32_t column) override {
    clicks.emplace_back(line, column);
    if (onClick) onClick();
    return true;
  }
  void shown() override { ++timesShown; }
  void hidden() override { ++timesHidden; }

  Clicks clicks;
  std::function<void()> onClick;
  int timesShown = 0;
  int timesHidden = 0;
};

class Form : public testing::Test {
 protected:
  Form() { add({L"first line", L"second line", L"third"}); }
  ~Form() override {
    if (form_) form_->Hide();
  }

  void add(const std::vector<std::wstring>& lines) {
    for (const std::wstring& line : lines) form_->view().report().Add(line, 0);
  }
  HWND control(Control which) { return windowOf(form_->hWnd(), which); }
  static void press(HWND window, int key) {
    SendMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 0);
    runPendingMessages();
  }
  void push(Control button) { SendMessageW(control(button), BM_CLICK, 0, 0); }

  FakeSettings settings_;
  FakeSettings::Store store_{settings_};
  Settings sources_{settings_, store_, L"C:\\host"};
  std::shared_ptr<RecordingHost> host_ = std::make_shared<RecordingHost>();
  std::shared_ptr<QuickViewForm> form_ = QuickViewForm::create(sources_, host_, noPrinter);
};

TEST_F(Form, VisibleOneHoldsItselfAndGoesWhenHidden) {
  const std::weak_ptr<QuickViewForm> watched = form_;
  form_->Show(false, nullptr);
  auto* const window = form_->hWnd();
  form_.reset();
  ASSERT_FALSE(watched.expired());
  EXPECT_EQ(host_->timesShown, 1);
  SendMessageW(windowOf(window, Control::cbCerrar), BM_CLICK, 0, 0);
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(IsWindow(window), FALSE);
  EXPECT_EQ(host_->timesHidden, 1);
  EXPECT_EQ(host_.use_count(), 1);
}

TEST_F(Form, ModalShowingLastsUntilTheCloseBox) {
  const HostWindow host;
  SetActiveWindow(host.get());
  bool wasDisabled = false;
  host_->onClick = [&] {
    wasDisabled = IsWindowEnabled(host.get()) == FALSE;
    EXPECT_EQ(GetWindow(form_->hWnd(), GW_OWNER), host.get());
    EXPECT_EQ(errorOf([&] { return form_->Show(true, nullptr), 0; }), 400);
    EXPECT_NO_THROW(form_->Show(false, nullptr));
    PostMessageW(form_->hWnd(), WM_CLOSE, 0, 0);
  };
  PostMessageW(control(Control::Text2), WM_KEYDOWN, L'5', 0);
  PostMessageW(control(Control::Text1), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  PostMessageW(control(Control::Text1), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  form_->Show(true, nullptr);
  EXPECT_EQ(host_->clicks.size(), 1U);
  EXPECT_EQ(windowText(control(Control::Text2)), L"50") << "keys write";
  EXPECT_TRUE(wasDisabled);
  EXPECT_NE(IsWindowEnabled(host.get()), FALSE);
  EXPECT_FALSE(form_->Visible());
}

TEST_F(Form, KeysWorkWithoutTheHostsHelp) {
  form_->Show(false, nullptr);
  SetFocus(control(Control::Text1));
  std::vector<int> order;
  for (int i = 0; i < 8; ++i) {
    order.push_back(GetDlgCtrlID(GetFocus()) - idOf(Control{}));
    press(GetFocus(), VK_TAB);
  }
  using enum Control;
  const std::vector<Control> expected = {Text1,    Text2,      cbPrinterFonts, cbGuardar,
                                         Command1, cbImprimir, cbCerrar,       Text1};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(order[i], static_cast<int>(expected[i])) << i;
  }
  {
    const HeldKeys held({VK_SHIFT});
    press(control(Text1), VK_TAB);
  }
  EXPECT_EQ(GetFocus(), control(Text1)) << "backwards";
  form_->view().FindText(L"line");
  press(control(cbGuardar), VK_F3);
  press(control(cbCerrar), VK_TAB);
  EXPECT_EQ(SendMessageW(control(Text1), EM_GETSEL, 0, 0), MAKELRESULT(19, 23))
      << "find next, and the focus leaves the selection";
  press(control(Text1), VK_RETURN);
  EXPECT_TRUE(form_->Visible()) << "a text is no button";
  press(control(Text2), VK_ESCAPE);
  EXPECT_FALSE(form_->Visible());
  form_->Show(false, nullptr);
  press(control(cbCerrar), VK_RETURN);
  EXPECT_FALSE(form_->Visible());
  form_->Show(false, nullptr);
  SendMessageW(form_->hWnd(), WM_COMMAND, IDCANCEL, 0);
  EXPECT_FALSE(form_->Visible()) << "Escape, as a dialog's loop tells it";
}

TEST_F(Form, HostMayHideAndLeaveTheWindowFromItsHandler) {
  form_->Show(false, nullptr);
  auto* const window = form_->hWnd();
  const std::weak_ptr<QuickViewForm> watched = form_;
  host_->onClick = [&] {
    form_->Hide();
    form_.reset();
  };
  SendMessageW(control(Control::Text1), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  ASSERT_TRUE(form_) << "the button was pressed where the window came up";
  SendMessageW(control(Control::Text1), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  SendMessageW(control(Control::Text1), EM_SETSEL, 0, 1);
  SendMessageW(control(Control::Text1), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  ASSERT_TRUE(form_) << "a selection is no click";
  clickCharacter(control(Control::Text1), 0);
  EXPECT_EQ(host_->clicks.size(), 1U);
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(IsWindow(window), FALSE);
}

TEST_F(Form, LeftMarginEntryShowsItsWholePart) {
  form_->Show(false, nullptr);
  SetFocus(control(Control::Text2));
  runPendingMessages();
  SendMessageW(control(Control::Text2), EM_SETSEL, 0, -1);
  for (const wchar_t key : std::wstring_view(L"12.5")) {
    SendMessageW(control(Control::Text2), WM_CHAR, key, 0);
  }
  const HostWindow other;
  SetActiveWindow(other.get());
  SetActiveWindow(form_->hWnd());
  EXPECT_EQ(GetFocus(), control(Control::Text2)) << "again";
  EXPECT_EQ(windowText(control(Control::Text2)), L"12.5") << "nobody left it";
  SetFocus(control(Control::Text1));
  runPendingMessages();
  EXPECT_EQ(windowText(control(Control::Text2)), L"12");
}

// Else they would end with its range.
TEST_F(Form, StepsOfTheMarginMoveNothingButTheMargin) {
  form_->Show(false, nullptr);
  auto* const steps = control(Control::UpDown1);
  const auto position = [&] { return SendMessageW(steps, UDM_GETPOS32, 0, 0); };
  const LRESULT before = position();
  SendMessageW(steps, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  SendMessageW(steps, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  EXPECT_EQ(windowText(control(Control::Text2)), L"1");
  EXPECT_EQ(position(), before);
  press(control(Control::Text2), VK_UP);
  EXPECT_EQ(windowText(control(Control::Text2)), L"2");
  press(control(Control::Text2), VK_DOWN);
  EXPECT_EQ(windowText(control(Control::Text2)), L"1");
}

TEST_F(Form, PicturesAndKeysChangeTheScreenFont) {
  form_->Show(false, nullptr);
  const auto size = [this] { return formatOf(control(Control::Text1)).yHeight / 20; };
  const auto click = [this](Control picture, int notification) {
    SendMessageW(form_->hWnd(), WM_COMMAND, MAKEWPARAM(idOf(picture), notification), 0);
  };
  const LONG before = size();
  click(Control::imgFontGrow, STN_CLICKED);
  click(Control::imgFontGrow, STN_DBLCLK);
  EXPECT_EQ(size(), before + 2);
  click(Control::imgFontShrink, STN_CLICKED);
  EXPECT_EQ(size(), before + 1);
  EXPECT_NE(SendMessageW(control(Control::imgFontGrow), STM_GETICON, 0, 0), 0);
  {
    const HeldKeys held({VK_CONTROL});
    press(control(Control::cbCerrar), VK_ADD);
    EXPECT_EQ(size(), before + 2);
  }
  {
    const HeldKeys held({VK_CONTROL, VK_MENU});
    press(control(Control::cbCerrar), VK_ADD);
    EXPECT_EQ(size(), before + 2) << "AltGr writes characters";
  }
  const auto turn = [this](WORD keys, int delta) {
    SendMessageW(control(Control::Text1), WM_MOUSEWHEEL, MAKEWPARAM(keys, static_cast<WORD>(delta)),
                 0);
  };
  turn(MK_CONTROL, -60);
  EXPECT_EQ(size(), before + 2) << "half a notch";
  turn(MK_CONTROL, -60);
  turn(0, -1200);
  EXPECT_EQ(size(), before + 1);
  turn(MK_CONTROL, -30 * 120);
  EXPECT_EQ(size(), 5);
}

// Without a mouse and without eyes.
TEST_F(Form, ControlsAreNamedAndShowTheFocus) {
  for (const ControlText& text : controlTexts()) {
    auto* const window = control(text.control);
    const std::wstring before = windowText(GetWindow(window, GW_HWNDPREV));
    if (text.control == Control::Text1) {
      EXPECT_EQ(before, L"Texto del reporte");
    } else if (text.control == Control::Text2) {
      EXPECT_EQ(before, L"Margen Izq.:");
    } else {
      EXPECT_NE(windowText(window), L"") << idOf(text.control);
    }
    EXPECT_EQ(SendMessageW(window, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS, 0);
    EXPECT_EQ(GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME, 0) << "no frame";
  }
}

TEST_F(Form, StandsInTheMiddleWithTheSystemsFont) {
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  RECT place{};
  GetWindowRect(form_->hWnd(), &place);
  EXPECT_NEAR(place.left - area.left, area.right - place.right, 1);
  EXPECT_NEAR(place.top - area.top, area.bottom - place.bottom, 1);
  auto* const font =
      reinterpret_cast<HFONT>(SendMessageW(control(Control::cbCerrar), WM_GETFONT, 0, 0));
  LOGFONTW described{};
  ASSERT_NE(GetObjectW(font, sizeof described, &described), 0);
  EXPECT_EQ(described.lfHeight, -11) << "eight points";
  EXPECT_EQ(described.lfWeight, FW_NORMAL);
  EXPECT_EQ(described.lfCharSet, DEFAULT_CHARSET);
  EXPECT_STREQ(described.lfFaceName, L"MS Shell Dlg 2");
}

// As on the way to another screen.
TEST_F(Form, ResolutionBringsItsPlaceAndAFreshFont) {
  auto* const button = control(Control::cbCerrar);
  const auto font = [button] { return SendMessageW(button, WM_GETFONT, 0, 0); };
  const LRESULT before = font();
  RECT place{40, 30, 1040, 630};
  SendMessageW(form_->hWnd(), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&place));
  RECT taken{};
  GetWindowRect(form_->hWnd(), &taken);
  EXPECT_NE(EqualRect(&taken, &place), FALSE);
  EXPECT_NE(font(), before);
}

TEST_F(Form, PicturesHaveTipsInEachNewWindow) {
  DestroyWindow(form_->hWnd());
  auto* const form = form_->hWnd();
  HWND tips = nullptr;
  do {
    tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr);
  } while (tips != nullptr && GetWindow(tips, GW_OWNER) != form);
  ASSERT_NE(tips, nullptr);
  EXPECT_EQ(SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0), 2);
  for (const Control picture : {Control::imgFontGrow, Control::imgFontShrink}) {
    std::array<wchar_t, 80> text{};
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = form;
    tool.uId = reinterpret_cast<UINT_PTR>(control(picture));
    tool.lpszText = text.data();
    SendMessageW(tips, TTM_GETTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(std::wstring(text.data()), controlTexts().at(static_cast<std::size_t>(picture)).tip);
  }
}

TEST_F(Form, MenuOfTheTextCopiesAndSelectsAll) {
  form_->Show(false, nullptr);
  auto* const text = control(Control::Text1);
  const auto choose = [text](int entry) {
    for (int i = 0; i < entry; ++i) PostMessageW(text, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageW(text, WM_KEYDOWN, VK_RETURN, 0);
    SendMessageW(text, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(text), -1);
  };
  form_->view().FindText(L"second");
  choose(1);
  EXPECT_EQ(clipboardText(), L"second");
  choose(2);
  CHARRANGE range{};
  SendMessageW(text, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  EXPECT_EQ(range.cpMin, 0);
  EXPECT_GE(range.cpMax, 30);
}

TEST_F(Form, OwnerThatGoesTakesTheWindowAlongAndANewOneIsAsItWas) {
  {
    const HostWindow owner;
    form_->Show(false, owner.get());
    EXPECT_EQ(GetWindow(form_->hWnd(), GW_OWNER), owner.get());
    form_->setCaption(L"Cierre Z");
    form_->setWidth(13500);
    form_->setTop(750);
    form_->view().growScreenFont();
  }
  EXPECT_FALSE(form_->Visible());
  EXPECT_EQ(host_->timesHidden, 1);
  form_->view().report().Add(L"fourth", 0);
  const HostWindow other;
  form_->Show(false, nullptr);
  SetActiveWindow(other.get());
  form_->Show(false, nullptr);
  EXPECT_EQ(GetActiveWindow(), form_->hWnd());
  EXPECT_EQ(windowText(control(Control::Text1)),
            L"first line \r\nsecond line \r\nthird \r\n\r\nfourth ");
  EXPECT_EQ(windowText(form_->hWnd()), L"Cierre Z");
  EXPECT_EQ(form_->Width(), 13500);
  EXPECT_EQ(form_->Top(), 750);
  EXPECT_EQ(formatOf(control(Control::Text1)).yHeight, 200);
}

TEST_F(Form, OwnerThatGoesWhenItIsHiddenLeavesItAlone) {
  auto owner = std::make_unique<HostWindow>();
  form_->Show(false, owner->get());
  form_->Hide();
  auto* const window = form_->hWnd();
  owner.reset();
  EXPECT_NE(IsWindow(window), FALSE);
}

TEST_F(Form, MinimisedOneThatIsShownAgainComesUp) {
  form_->Show(false, nullptr);
  const double left = form_->Left();
  const double width = form_->Width();
  ShowWindow(form_->hWnd(), SW_MINIMIZE);
  form_->setWidth(width + 1500);
  EXPECT_EQ(std::pair(form_->Left(), form_->Width()), std::pair(left, width))
      << "it stays as it is meanwhile";
  form_->Show(false, nullptr);
  EXPECT_EQ(IsIconic(form_->hWnd()), FALSE);
  ShowWindow(form_->hWnd(), SW_MINIMIZE);
  form_->Hide();
  form_->Show(false, nullptr);
  EXPECT_EQ(IsIconic(form_->hWnd()), FALSE);
}

TEST_F(Form, ShowingIsAsIfClosedAtOnceWhereNobodySeesIt) {
  static_cast<void>(form_->hWnd());
  const std::weak_ptr<QuickViewForm> watched = form_;
  {
    const HiddenDesktop hidden;
    for (const bool isModal : {false, true}) form_->Show(isModal, nullptr);
  }
  EXPECT_FALSE(form_->Visible());
  EXPECT_TRUE(form_->view().report().loaded()) << "as if shown and closed";
  EXPECT_EQ(host_->timesShown, 0);
  form_.reset();
  EXPECT_TRUE(watched.expired());
}

TEST_F(Form, WindowThatCannotBeMadeIsAnErrorOfTheHost) {
  const NoNewWindows refused;
  EXPECT_EQ(errorOf([&] { return form_->Show(false, nullptr), 0; }), 7);
  EXPECT_EQ(errorOf([&] { return form_->hWnd() != nullptr; }), 7);
  EXPECT_EQ(form_->Caption(), L"Documento: Vista R\u00E1pida") << "needs none";
  WindowsReportViews views(noPrinter);
  const std::shared_ptr<ReportView> view = views.create(sources_);
  view->Add(L"line");
  EXPECT_EQ(errorOf([&] { return view->showModal(), 0; }), 7);
}

TEST_F(Form, PrintsThoughItsOwnerGoesMeanwhile) {
  auto owner = std::make_unique<HostWindow>();
  form_->Show(false, owner->get());
  int opened = 0;
  auto printing = QuickViewForm::create(sources_, host_, [&](ContextKind kind) {
    if (++opened == 2) owner.reset();
    return screenAsPrinter(kind);
  });
  printing->Show(false, owner->get());
  auto* const window = printing->hWnd();
  EXPECT_EQ(printing->view().report().print(), PrintEnd::Failed) << "a screen takes no document";
  EXPECT_EQ(IsWindow(window), FALSE);
  EXPECT_FALSE(printing->Visible());
}

TEST(ReportViews, FitTheirLinesWhenTheyAreFirstShown) {
  FakeSettings settings;
  FakeSettings::Store store{settings};
  const Settings sources{settings, store, L"C:\\host"};
  WindowsReportViews views(screenAsPrinter);
  const std::shared_ptr<ReportView> view = views.create(sources);
  view->SetReportWidth(40);
  for (int i = 0; i < 300; ++i) view->Add(L"line");
  std::wstring text;
  for (int showing = 1; showing <= 2; ++showing) {
    const Robot robot([&](HWND form) {
      view->Add(L"showing " + std::to_wstring(showing));
      text = windowText(windowOf(form, Control::Text1));
      PostMessageW(form, WM_CLOSE, 0, 0);
    });
    view->showModal();
    EXPECT_TRUE(text.starts_with(L"line \r\n"));
    EXPECT_NE(text.find(L"\r\n" + std::wstring(42, L'_') + L"\r\n"), std::wstring::npos);
    EXPECT_EQ(text.find(std::wstring(43, L'_')), std::wstring::npos);
    EXPECT_TRUE(text.ends_with(L"showing " + std::to_wstring(showing) + L" "));
  }
}

// As many as CORVID_CALLS says.
TEST_F(Form, RoundsOfShowPrintAndCloseLeaveNothingBehind) {
  const unsigned rounds = environmentNumber("CORVID_CALLS", 5);
  std::array<long, 4> before{};
  const auto owned = [] {
    return std::array<long, 4>{DeviceContext::living(), Font::living(), Icon::living(),
                               FileHandle::living()};
  };
  form_.reset();
  for (unsigned i = 0; i <= rounds; ++i) {
    form_ = QuickViewForm::create(sources_, host_, screenAsPrinter);
    add({L"line"});
    form_->Show(false, nullptr);
    EXPECT_EQ(form_->view().report().print(), PrintEnd::Failed) << "a screen takes no document";
    push(Control::cbCerrar);
    form_.reset();
    if (i == 0) before = owned();
  }
  EXPECT_EQ(owned(), before);
}

}  // namespace
}  // namespace corvid
