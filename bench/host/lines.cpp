#include "lines.h"

#include "automation.h"
#include "corvid_interfaces.h"

#include <richedit.h>

#include <string>

namespace bench {
namespace {

using host::check;

constexpr int kLeft = 0;
constexpr int kTextBox = 100;  // the report's text, among the controls of its window
constexpr int kWidth = 762;    // pixels of the report's text at its first size
constexpr int kHeight = 448;
constexpr LONG kFontHeight = 180;  // twips
constexpr const wchar_t* kLine = L"Pan campesino          2,000     29,00 G";

// A top-level window that is nothing but the control.
class BareControl {
 public:
  BareControl()
      : window_(CreateWindowExW(0, RICHEDIT_CLASSW, nullptr,
                                WS_POPUP | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE |
                                    ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_NOHIDESEL,
                                0, 0, kWidth, kHeight, nullptr, nullptr, nullptr, nullptr)) {
    CHARFORMATW font{};
    font.cbSize = sizeof font;
    font.dwMask = CFM_FACE | CFM_SIZE;
    font.yHeight = kFontHeight;
    lstrcpyW(font.szFaceName, L"Courier New");
    tell(EM_SETCHARFORMAT, SCF_ALL, &font);
    tell(EM_EXLIMITTEXT, 0, reinterpret_cast<const void*>(static_cast<LONG_PTR>(0x7FFFFFFF)));
  }
  BareControl(const BareControl&) = delete;
  BareControl& operator=(const BareControl&) = delete;
  BareControl(BareControl&&) = delete;
  BareControl& operator=(BareControl&&) = delete;
  ~BareControl() { DestroyWindow(window_); }

  [[nodiscard]] HWND window() const { return window_; }
  void append(const std::wstring& text) const {
    const CHARRANGE end{-1, -1};
    tell(EM_EXSETSEL, 0, &end);
    tell(EM_REPLACESEL, FALSE, text.c_str());
  }

 private:
  void tell(UINT message, WPARAM wide, const void* data) const {
    SendMessageW(window_, message, wide, reinterpret_cast<LPARAM>(data));
  }

  HWND window_;
};

HWND textBoxOf(LONG window) {
  return GetDlgItem(static_cast<HWND>(LongToHandle(window)), kTextBox);
}

// Until the control holds all lines and has painted them.
void finish(HWND box) {
  SendMessageW(box, WM_GETTEXTLENGTH, 0, 0);
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  UpdateWindow(box);
}

// What goes on while the debug view is shown, which the session's Cerrar waits for.
struct Tracing {
  IPrinterFiscal* session = nullptr;
  int lines = 0;
  double seconds = 0;
};
Tracing tracing;

void CALLBACK trace(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  auto* const view = FindWindowW(nullptr, L"Documento: Vista R\u00E1pida");
  const host::Text command(L"w");
  const double start = now();
  // A closed port: one line each, and nothing else.
  for (int i = 0; i < tracing.lines; ++i) tracing.session->ExecuteNoCheck(command.get());
  finish(GetDlgItem(view, kTextBox));
  tracing.seconds = now() - start;
  PostMessageW(view, WM_CLOSE, 0, 0);
}

}  // namespace

double now() {
  LARGE_INTEGER ticks;
  LARGE_INTEGER ticksPerSecond;
  QueryPerformanceCounter(&ticks);
  QueryPerformanceFrequency(&ticksPerSecond);
  return static_cast<double>(ticks.QuadPart) / static_cast<double>(ticksPerSecond.QuadPart);
}

double addToShownReport(int count) {
  host::Object<IlfQuickView> view;
  check(CoCreateInstance(__uuidof(lfQuickView), nullptr, CLSCTX_INPROC_SERVER,
                         __uuidof(IlfQuickView), reinterpret_cast<void**>(view.put())));
  check(view->put_Visible(VARIANT_TRUE));
  const host::Text line(kLine);
  const double start = now();
  for (int i = 0; i < count; ++i) check(view->Add(line.get(), kLeft));
  LONG window = 0;
  check(view->get_hWnd(&window));
  finish(textBoxOf(window));
  const double seconds = now() - start;
  check(view->Hide());
  return seconds;
}

double traceToShownView(int count) {
  host::Object<IPrinterFiscal> session;
  check(CoCreateInstance(__uuidof(PrinterFiscal), nullptr, CLSCTX_INPROC_SERVER,
                         __uuidof(IPrinterFiscal), reinterpret_cast<void**>(session.put())));
  const host::Text command(L"w");
  check(session->ExecuteNoCheck(command.get()));  // there is something to be shown
  tracing.session = session.operator->();
  tracing.lines = count;
  SetTimer(nullptr, 0, USER_TIMER_MINIMUM, trace);
  check(session->Cerrar());
  return tracing.seconds;
}

double addToBareControl(int count) {
  LoadLibraryW(L"riched20.dll");
  const BareControl control;
  const std::wstring line = L"\r\n" + std::wstring(kLine) + L" ";
  const double start = now();
  for (int i = 0; i < count; ++i) control.append(line);
  finish(control.window());
  return now() - start;
}

}  // namespace bench
