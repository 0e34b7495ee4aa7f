#include "windows/report_dialogs.h"

#include "windows/font_description.h"
#include "windows/input_dialog.h"
#include "windows/message_box.h"

#include <windows.h>
// Needs windows.h first.
#include <commdlg.h>

#include <utility>

namespace corvid {
namespace {

constexpr std::size_t kLongestPath = 32768;
constexpr double kTenthsPerPoint = 10;

// Printer fonts only, of fixed pitch only; the rest shows the font that is in use.
constexpr DWORD kFontFlags = CF_PRINTERFONTS | CF_FIXEDPITCHONLY | CF_INITTOLOGFONTSTRUCT;
constexpr DWORD kSaveFlags =
    OFN_LONGNAMES | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_OVERWRITEPROMPT;

// The dialog reads heights in the screen's pixels, whatever device its fonts belong to.
LOGFONTW describe(const FontChoice& font) {
  const DeviceContext screen(CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr));
  return describeFont(font, GetDeviceCaps(screen.get(), LOGPIXELSY));
}

FontChoice chosenFont(const CHOOSEFONTW& dialog) {
  const LOGFONTW& font = *dialog.lpLogFont;
  return {font.lfFaceName, dialog.iPointSize / kTenthsPerPoint, font.lfWeight > FW_MEDIUM,
          font.lfItalic != FALSE};
}

std::wstring filterOf(const SaveRequest& request) {
  std::wstring filter = request.filterName;
  filter.append(1, L'\0').append(request.filterPattern).append(2, L'\0');
  return filter;
}

}  // namespace

WindowsReportDialogs::WindowsReportDialogs(std::function<HWND()> owner, PrinterOpener openPrinter)
    : owner_(std::move(owner)), openPrinter_(std::move(openPrinter)) {}

HWND WindowsReportDialogs::owner() const {
  auto* const window = owner_();
  return window != nullptr ? window : GetActiveWindow();
}

void WindowsReportDialogs::message(const std::wstring& text, const std::wstring& title,
                                   MessageIcon icon) {
  if (hasInteractiveDesktop()) showMessageBox(owner(), text, title, MB_OK, icon);
}

Answer WindowsReportDialogs::ask(const std::wstring& text, const std::wstring& title) {
  if (!hasInteractiveDesktop()) return Answer::Yes;
  return showMessageBox(owner(), text, title, MB_YESNO, MessageIcon::None) == IDNO ? Answer::No
                                                                                   : Answer::Yes;
}

std::wstring WindowsReportDialogs::input(const std::wstring& prompt, const std::wstring& title,
                                         const std::wstring& initial) {
  return hasInteractiveDesktop() ? askForText(owner(), prompt, title, initial) : std::wstring();
}

std::optional<FontChoice> WindowsReportDialogs::chooseFont(const FontChoice& initial) {
  if (!hasInteractiveDesktop()) return std::nullopt;
  const OpenedPrinter printer = openPrinter_(ContextKind::Measures);
  if (!printer.context) return std::nullopt;
  LOGFONTW font = describe(initial);
  CHOOSEFONTW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner();
  dialog.hDC = printer.context.get();
  dialog.lpLogFont = &font;
  dialog.Flags = kFontFlags;
  if (ChooseFontW(&dialog) == FALSE) return std::nullopt;
  return chosenFont(dialog);
}

std::optional<std::wstring> WindowsReportDialogs::chooseSaveFile(const SaveRequest& request) {
  if (!hasInteractiveDesktop()) return std::nullopt;
  std::wstring path(kLongestPath, L'\0');
  const std::wstring filter = filterOf(request);
  const std::size_t point = request.defaultExtension.starts_with(L'.') ? 1 : 0;
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner();
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = kLongestPath;
  dialog.lpstrInitialDir = request.initialFolder.empty() ? nullptr : request.initialFolder.c_str();
  dialog.lpstrTitle = request.title.c_str();
  dialog.lpstrDefExt = request.defaultExtension.c_str() + point;
  dialog.Flags = kSaveFlags;
  if (GetSaveFileNameW(&dialog) == FALSE) return std::nullopt;
  path.resize(path.find(L'\0'));
  return path;
}

}  // namespace corvid
