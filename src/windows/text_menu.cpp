#include "windows/text_menu.h"

#include "windows/owned_handle.h"

#include <windows.h>
// Need windows.h first.
#include <richedit.h>
#include <windowsx.h>

namespace corvid {
namespace {

struct MenuTraits {
  using Type = HMENU;
  static constexpr Type none() { return nullptr; }
  static void release(Type menu) { DestroyMenu(menu); }
};
using Menu = Owned<MenuTraits>;

constexpr UINT kCopy = 1;
constexpr UINT kSelectAll = 2;

bool hasSelection(HWND box) {
  CHARRANGE range{};
  SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return range.cpMin != range.cpMax;
}

POINT caretOf(HWND box) {
  POINT caret{};
  GetCaretPos(&caret);
  ClientToScreen(box, &caret);
  return caret;
}

UINT choose(HWND box, POINT place) {
  const Menu menu(CreatePopupMenu());
  AppendMenuW(menu.get(), hasSelection(box) ? MF_STRING : MF_GRAYED, kCopy, L"&Copiar\tCtrl+C");
  AppendMenuW(menu.get(), MF_STRING, kSelectAll, L"&Seleccionar todo\tCtrl+A");
  const BOOL chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                     place.x, place.y, 0, box, nullptr);
  return static_cast<UINT>(chosen);
}

}  // namespace

void showTextMenu(HWND box, LPARAM place) {
  const POINT at = place == -1 ? caretOf(box) : POINT{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
  const UINT chosen = choose(box, at);
  if (chosen == kCopy) SendMessageW(box, WM_COPY, 0, 0);
  const CHARRANGE all{0, -1};
  if (chosen == kSelectAll) SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&all));
}

}  // namespace corvid
