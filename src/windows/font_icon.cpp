#include "windows/font_icon.h"

namespace corvid {
namespace {

// The library's or a test program's: by an address, as the process's own module is the host.
HINSTANCE moduleOfThisCode() {
  static const char place = 0;
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&place), &module);
  return module;
}

}  // namespace

Icon loadFontIcon(FontIcon icon, int pixels) {
  const wchar_t* name = icon == FontIcon::Grow ? L"FONT_GROW" : L"FONT_SHRINK";
  return Icon(static_cast<HICON>(
      LoadImageW(moduleOfThisCode(), name, IMAGE_ICON, pixels, pixels, LR_DEFAULTCOLOR)));
}

}  // namespace corvid
