// Says what stands in a window of another program: one line for the window and one for each of its
// controls.
//
//   window_reader TITLE
//
// A line is "identifier|left|top|width|height|selection start|selection end|text": pixels from the
// window's own corner (the window itself: from the screen's), the text in UTF-8 with CR and LF as
// \r and \n. Exit code 1 where there is no such visible window.
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

std::wstring textOf(HWND window) {
  const auto length = static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
  std::wstring text(length + 1, L'\0');
  const LRESULT got =
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(got));
  return text;
}

std::string inOneLine(const std::wstring& text) {
  std::string bytes(text.size() * 4, '\0');
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(length));
  std::string line;
  for (const char byte : bytes) {
    if (byte == '\r') {
      line += "\\r";
    } else if (byte == '\n') {
      line += "\\n";
    } else {
      line += byte;
    }
  }
  return line;
}

void describe(HWND window, POINT origin) {
  RECT place{};
  GetWindowRect(window, &place);
  const auto selection = static_cast<DWORD>(SendMessageW(window, EM_GETSEL, 0, 0));
  std::printf("%d|%ld|%ld|%ld|%ld|%d|%d|%s\n", GetDlgCtrlID(window), place.left - origin.x,
              place.top - origin.y, place.right - place.left, place.bottom - place.top,
              LOWORD(selection), HIWORD(selection), inOneLine(textOf(window)).c_str());
}

BOOL CALLBACK describeChild(HWND child, LPARAM data) {
  describe(child, *reinterpret_cast<const POINT*>(data));
  return TRUE;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  auto* const window = count > 1 ? FindWindowW(nullptr, arguments[1]) : nullptr;
  if (window == nullptr || IsWindowVisible(window) == FALSE) return 1;
  describe(window, {0, 0});
  RECT place{};
  GetWindowRect(window, &place);
  POINT corner{place.left, place.top};
  EnumChildWindows(window, describeChild, reinterpret_cast<LPARAM>(&corner));
  return 0;
}
