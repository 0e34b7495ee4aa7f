// The preview window's control windows: made, dressed and placed.
#pragma once

#include "preview/quick_view_controls.h"
#include "windows/dialog_template.h"
#include "windows/drawing_handles.h"

#include <windows.h>

#include <array>

namespace corvid {

// The window with all its controls, hidden.
[[nodiscard]] DialogTemplate describeForm();

// Identifiers of the control windows.
[[nodiscard]] constexpr int idOf(Control control) { return 100 + static_cast<int>(control); }
[[nodiscard]] HWND windowOf(HWND form, Control control);

// What the controls of one form show: font, pictures and tips.
class FormDress {
 public:
  // For the resolution that the form has now; may be repeated when it changes.
  void put(HWND form);

 private:
  void putFont(HWND form, int dotsPerInch);
  void putPictures(HWND form, int dotsPerInch);
  static void addTips(HWND form);
  static void putNames(HWND form);

  Font font_;
  std::array<Icon, 2> pictures_;
  bool hasTips_ = false;
};

void placeControls(HWND form, const QuickViewLayout& layout, int dotsPerInch);

}  // namespace corvid
