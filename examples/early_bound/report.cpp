// A report from an early-bound host: it shows the preview window beside its own work, and its sink
// is told about the lines that the user clicks.
//
//   early_bound_report

#include "automation.h"
#include "corvid_interfaces.h"

#include <cstdio>
#include <cstdlib>

namespace {

using host::check;

constexpr DISPID kReportClicked = 1;
constexpr short kReportWidth = 60;
constexpr long kLeftAligned = 0;
constexpr long kRightAligned = 1;
constexpr long kCentred = 2;
constexpr int kInvoices = 120;

void say(const std::wstring& line) {
  std::printf("%ls\n", line.c_str());
  std::fflush(stdout);
}

using View = host::Object<IlfQuickView>;

// Automation interfaces have no virtual destructor; nobody destroys a sink through one.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// What the window calls when a line is clicked. It outlives the connection.
class ClickSink final : public DlfQuickViewEvents {
 public:
  ClickSink() = default;
  ClickSink(const ClickSink&) = delete;
  ClickSink& operator=(const ClickSink&) = delete;
  ClickSink(ClickSink&&) = delete;
  ClickSink& operator=(ClickSink&&) = delete;
  ~ClickSink() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool isKnown =
        id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(DlfQuickViewEvents);
    *object = isKnown ? this : nullptr;
    if (!isKnown) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override { return --references_; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  // Arguments stand last first: cancel, column, line.
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    if (event != kReportClicked || arguments->cArgs != 3) return DISP_E_MEMBERNOTFOUND;
    const VARIANT* values = arguments->rgvarg;
    say(L"Clicked at column " + std::to_wstring(V_I4(&values[1])) + L": " + V_BSTR(&values[2]));
    *V_BOOLREF(&values[0]) = VARIANT_TRUE;  // nobody else needs to be told
    return S_OK;
  }

 private:
  ULONG references_ = 1;
};

#pragma GCC diagnostic pop

// Connects the sink for as long as it lives.
class Connection {
 public:
  Connection(const View& view, DlfQuickViewEvents& sink) {
    host::Object<IConnectionPointContainer> container;
    check(view->QueryInterface(IID_IConnectionPointContainer,
                               reinterpret_cast<void**>(container.put())));
    check(container->FindConnectionPoint(__uuidof(DlfQuickViewEvents), point_.put()));
    check(point_->Advise(&sink, &cookie_));
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  Connection(Connection&&) = delete;
  Connection& operator=(Connection&&) = delete;
  ~Connection() { point_->Unadvise(cookie_); }

 private:
  host::Object<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

void add(const View& view, const std::wstring& line, long alignment) {
  check(view->Add(host::Text(line.c_str()).get(), alignment));
}

void build(const View& view) {
  VARIANT_BOOL fitted = VARIANT_FALSE;
  check(view->SetReportWidth(kReportWidth, &fitted));
  add(view, L"FACTURAS DEL DIA", kCentred);
  for (int number = 1; number <= kInvoices; ++number) {
    add(view, L"Factura " + std::to_wstring(number), kLeftAligned);
  }
  add(view, std::to_wstring(kInvoices) + L" facturas", kRightAligned);
}

bool isVisible(const View& view) {
  VARIANT_BOOL visible = VARIANT_FALSE;
  check(view->get_Visible(&visible));
  return visible != VARIANT_FALSE;
}

// The host's own loop, as long as the window is there.
void runMessages(const View& view) {
  MSG message{};
  while (isVisible(view) && GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void run() {
  View view;
  check(CoCreateInstance(__uuidof(lfQuickView), nullptr, CLSCTX_INPROC_SERVER,
                         __uuidof(IlfQuickView), reinterpret_cast<void**>(view.put())));
  ClickSink sink;
  const Connection connection(view, sink);
  build(view);
  check(view->Show(host::Value::missing(), host::Value::missing()));
  say(L"The report is shown.");
  runMessages(view);
  say(L"The window was closed.");
}

int runReportingFailure() {
  try {
    const host::Apartment apartment;
    run();
    return EXIT_SUCCESS;
  } catch (const host::Failure& failure) {
    say(L"Error from " + failure.source + L": " + failure.description);
  } catch (const std::exception& error) {
    std::printf("%s\n", error.what());
  }
  return EXIT_FAILURE;
}

}  // namespace

int main() { return runReportingFailure(); }
