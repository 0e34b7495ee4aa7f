// lfQuickView as its hosts drive it: members, owner windows, events and life.
#include "unit/com/automation_host.h"
#include "unit/windows/desktop.h"
#include "windows/form_controls.h"

#include <gmock/gmock.h>
#include <richedit.h>

#include <thread>

namespace corvid::testing {
namespace {

using ::testing::ElementsAre;

ComPtr<IlfQuickView> newView() { return create<IlfQuickView>(__uuidof(::lfQuickView)); }

HWND windowOf(IlfQuickView& view) {
  LONG handle = 0;
  EXPECT_EQ(S_OK, view.get_hWnd(&handle));
  return static_cast<HWND>(LongToHandle(handle));
}

// Clicks a line of the text, counted from 0, at column 2.
void clickLine(IlfQuickView& view, int line) {
  auto* const text = corvid::windowOf(windowOf(view), Control::Text1);
  const LRESULT start = SendMessageW(text, EM_LINEINDEX, static_cast<WPARAM>(line), 0);
  corvid::clickCharacter(text, start + 2);
}

// Arguments stand last first.
std::wstring clicked(const DISPPARAMS& arguments) {
  const VARIANT* last = arguments.rgvarg + arguments.cArgs;
  return std::wstring(viewOf(V_BSTR(last - 1))) + L"@" + std::to_wstring(V_I4(last - 2));
}

struct Told {
  std::vector<std::wstring> events;
  std::vector<std::wstring> calls;
  bool cancels = false;
  HRESULT raises = S_OK;
};

class View : public AutomationTest {
 protected:
  void SetUp() override {
    for (const auto* line : {L"line A", L"line B", L"line C"}) {
      ASSERT_EQ(S_OK, view_->Add(Bstr(line).get(), 0));
    }
    ASSERT_EQ(S_OK, view_->put_Visible(VARIANT_TRUE));
    ASSERT_EQ(S_OK, view_.as<IConnectionPointContainer>()->FindConnectionPoint(
                        __uuidof(DlfQuickViewEvents), point_.put()));
  }
  ~View() override {
    if (view_) view_->Hide();
    view_ = {};
    point_ = {};
    EXPECT_EQ(S_OK, DllCanUnloadNow());
    // What the object held went with it.
    EXPECT_EQ(1U, sink_.references);
    EXPECT_EQ(1U, target_.references);
  }
  DWORD connect() {
    DWORD cookie = 0;
    EXPECT_EQ(S_OK, point_->Advise(&sink_, &cookie));
    return cookie;
  }

  Told told_;
  HostObject sink_{L"", [this](DISPPARAMS& arguments, VARIANT*) {
                     told_.events.push_back(clicked(arguments));
                     if (told_.cancels) *V_BOOLREF(&arguments.rgvarg[0]) = VARIANT_TRUE;
                     return told_.raises;
                   }};
  HostObject target_{L"ReportClicked", [this](DISPPARAMS& arguments, VARIANT*) {
                       told_.calls.push_back(clicked(arguments));
                       return told_.raises;
                     }};
  ComPtr<IlfQuickView> view_ = newView();
  ComPtr<IConnectionPoint> point_;
};

TEST_F(View, RaisesItsErrorsWithSourceAndDescription) {
  const LateResult margin = putLate(view_.get(), L"LeftMargin", Variant::ofInt16(-1).value());
  EXPECT_EQ(margin.raised, static_cast<HRESULT>(0x80040005));
  EXPECT_EQ(margin.source, L"lfQuickView::SetLeftMargin");
  EXPECT_EQ(margin.description, L"Argumento inv\u00e1lido");
  ASSERT_EQ(S_OK, view_->SetPrintFontSize(8));
  VARIANT_BOOL fitted = VARIANT_TRUE;
  ASSERT_EQ(S_OK, view_->SetReportWidth(3, &fitted));
  EXPECT_EQ(fitted, VARIANT_FALSE);
  const Variant text = ::corvid::testing::text(L"longer");
  const LateResult added =
      callLate(view_.get(), L"Add", {text.value(), Variant::ofInt32(1).value()});
  EXPECT_EQ(added.raised, static_cast<HRESULT>(0x800A0005));
}

TEST_F(View, TellsEventThenNotifyTargetTheClickedLine) {
  connect();
  ASSERT_EQ(S_OK, view_->SetNotify(&target_));
  told_.raises = E_FAIL;
  clickLine(*view_.get(), 0);
  EXPECT_THAT(told_.events, ElementsAre(L"line A @2"));
  EXPECT_THAT(told_.calls, ElementsAre(L"line A @2")) << "what the sink raised is of no concern";
  told_.raises = S_OK;
  told_.cancels = true;
  clickLine(*view_.get(), 1);
  EXPECT_THAT(told_.events, ElementsAre(L"line A @2", L"line B @2"));
  EXPECT_THAT(told_.calls, ElementsAre(L"line A @2"));
}

TEST_F(View, ForgetsSinksAndTargets) {
  const DWORD first = connect();
  const DWORD second = connect();
  EXPECT_NE(first, second);
  ASSERT_EQ(S_OK, view_->SetNotify(&target_));
  EXPECT_EQ(S_OK, point_->Unadvise(first));
  EXPECT_EQ(CONNECT_E_NOCONNECTION, point_->Unadvise(first));
  clickLine(*view_.get(), 0);
  EXPECT_THAT(told_.events, ElementsAre(L"line A @2"));
  EXPECT_THAT(told_.calls, ElementsAre(L"line A @2"));
  EXPECT_EQ(S_OK, point_->Unadvise(second));
  ASSERT_EQ(S_OK, view_->SetNotify(nullptr));
  clickLine(*view_.get(), 1);
  EXPECT_EQ(told_.events.size(), 1U);
  EXPECT_EQ(told_.calls.size(), 1U);
}

// Whoever is disconnected may be gone already.
TEST_F(View, DoesNotCallASinkThatAHandlerDisconnects) {
  DWORD second = 0;
  HostObject first(L"", [&](DISPPARAMS&, VARIANT*) { return point_->Unadvise(second); });
  DWORD cookie = 0;
  ASSERT_EQ(S_OK, point_->Advise(&first, &cookie));
  second = connect();
  clickLine(*view_.get(), 0);
  EXPECT_THAT(told_.events, ElementsAre());
  EXPECT_EQ(S_OK, point_->Unadvise(cookie));
}

TEST_F(View, CountsItsConnectionPointsReferencesAsItsOwn) {
  const auto count = [this] {
    view_->AddRef();
    return view_->Release();
  };
  const ULONG before = count();
  auto again = point_.as<IUnknown>();
  EXPECT_EQ(count(), before + 1);
  again = {};
  EXPECT_EQ(count(), before);
}

TEST_F(View, ListsItsConnectionPointAndTheSinksBehindIt) {
  const DWORD cookie = connect();
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(S_OK, view_.as<IConnectionPointContainer>()->EnumConnectionPoints(points.put()));
  ComPtr<IConnectionPoint> found;
  ASSERT_EQ(S_OK, points->Next(1, found.put(), nullptr));
  EXPECT_EQ(found.get(), point_.get());
  ComPtr<IConnectionPoint> none;
  EXPECT_EQ(S_FALSE, points->Next(1, none.put(), nullptr));
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(S_OK, point_->EnumConnections(connections.put()));
  CONNECTDATA connection{};
  ASSERT_EQ(S_OK, connections->Next(1, &connection, nullptr));
  EXPECT_EQ(connection.dwCookie, cookie);
  EXPECT_EQ(connection.pUnk, &sink_);
  connection.pUnk->Release();
  GUID source{};
  const auto description = view_.as<IProvideClassInfo2>();
  EXPECT_EQ(S_OK, description->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source));
  EXPECT_EQ(source, __uuidof(DlfQuickViewEvents));
  EXPECT_EQ(E_INVALIDARG, description->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID + 1, &source));
  EXPECT_EQ(source, GUID_NULL);
}

TEST_F(View, TakesAnOwnerAsObjectHandleOrNothing) {
  auto* const owner = CreateWindowExW(0, L"STATIC", L"host", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                      nullptr, nullptr);
  const LONG handle = HandleToLong(owner);
  HostObject form(L"hWnd", [&](DISPPARAMS&, VARIANT* result) {
    *result = Variant::ofInt32(handle).detach();
    return S_OK;
  });
  HostObject noForm(L"other", [](DISPPARAMS&, VARIANT*) { return S_OK; });
  struct Case {
    const char* reason;
    Variant given;
    HRESULT outcome;
    HWND owner;
  };
  const Case cases[] = {
      {"an object with a window", objectValue(&form), S_OK, owner},
      {"a handle", Variant::ofInt32(handle), S_OK, owner},
      {"Nothing", objectValue(nullptr), S_OK, nullptr},
      {"Empty", Variant(), S_OK, nullptr},
      {"left out", missing(), S_OK, nullptr},
      {"no window", objectValue(&noForm), static_cast<HRESULT>(0x800A01B6), nullptr},
      {"no handle", text(L"x"), static_cast<HRESULT>(0x800A000D), nullptr},
  };
  for (const Case& c : cases) {
    ASSERT_EQ(S_OK, view_->Hide());
    EXPECT_EQ(c.outcome, view_->Show(missing().value(), c.given.value())) << c.reason;
    EXPECT_EQ(c.owner, GetWindow(windowOf(*view_.get()), GW_OWNER)) << c.reason;
    VARIANT_BOOL visible = VARIANT_FALSE;
    view_->get_Visible(&visible);
    EXPECT_EQ(visible != VARIANT_FALSE, c.outcome == S_OK) << c.reason;
  }
  DestroyWindow(owner);
}

// The debug view's window lives in the thread that made the library.
TEST_F(View, StaysLoadedForOtherThreads) {
  view_->Hide();
  view_ = {};
  point_ = {};
  HRESULT elsewhere = S_OK;
  std::thread([&] { elsewhere = DllCanUnloadNow(); }).join();
  EXPECT_EQ(S_FALSE, elsewhere);
}

}  // namespace
}  // namespace corvid::testing
