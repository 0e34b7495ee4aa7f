#include "windows/input_dialog.h"

#include "windows/dialog_template.h"
#include "windows/window_text.h"

#include <utility>
#include <vector>

namespace corvid {
namespace {

constexpr int kPrompt = 100;
constexpr int kEntry = 101;

// Dialog units.
constexpr SIZE kSize{220, 66};
constexpr RECT kPromptPlace{7, 7, 213, 17};
constexpr RECT kEntryPlace{7, 20, 213, 34};
constexpr RECT kAcceptPlace{109, 45, 159, 59};
constexpr RECT kCancelPlace{163, 45, 213, 59};

DialogTemplate describe(const std::wstring& prompt, const std::wstring& title,
                        const std::wstring& initial) {
  const std::vector<DialogItem> items{
      {kPrompt, L"STATIC", prompt, SS_LEFT | SS_NOPREFIX, 0, kPromptPlace},
      {kEntry, L"EDIT", initial, ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE, kEntryPlace},
      {IDOK, L"BUTTON", L"Aceptar", BS_DEFPUSHBUTTON | WS_TABSTOP, 0, kAcceptPlace},
      {IDCANCEL, L"BUTTON", L"Cancelar", BS_PUSHBUTTON | WS_TABSTOP, 0, kCancelPlace},
  };
  const DWORD style =
      WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER | DS_SETFONT | DS_FIXEDSYS;
  return {{title, style, kSize}, items};
}

void close(HWND dialog, bool accepted) {
  const LONG_PTR answer = GetWindowLongPtrW(dialog, DWLP_USER);
  auto* text = reinterpret_cast<std::wstring*>(answer);  // NOLINT(performance-no-int-to-ptr)
  if (accepted) *text = windowText(GetDlgItem(dialog, kEntry));
  EndDialog(dialog, 0);
}

INT_PTR CALLBACK received(HWND dialog, UINT message, WPARAM wide, LPARAM data) {
  switch (message) {
    case WM_INITDIALOG:
      SetWindowLongPtrW(dialog, DWLP_USER, data);
      return TRUE;  // the entry, the first in tab order, gets the focus, all selected
    case WM_COMMAND:
      if (LOWORD(wide) != IDOK && LOWORD(wide) != IDCANCEL) return FALSE;
      close(dialog, LOWORD(wide) == IDOK);
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

std::wstring askForText(HWND owner, const std::wstring& prompt, const std::wstring& title,
                        const std::wstring& initial) {
  const DialogTemplate dialog = describe(prompt, title, initial);
  std::wstring answer;
  DialogBoxIndirectParamW(nullptr, dialog.get(), owner, received,
                          reinterpret_cast<LPARAM>(&answer));
  return answer;
}

}  // namespace corvid
