// Ownership of what the system draws with.
#pragma once

#include "windows/owned_handle.h"

#include <windows.h>

namespace corvid {

// A device context that was created, not one that a window lends.
struct DeviceContextTraits {
  using Type = HDC;
  static constexpr Type none() { return nullptr; }
  static void release(Type context) { DeleteDC(context); }
};
using DeviceContext = Owned<DeviceContextTraits>;

// To be given back while it is selected nowhere.
struct FontTraits {
  using Type = HFONT;
  static constexpr Type none() { return nullptr; }
  static void release(Type font) { DeleteObject(font); }
};
using Font = Owned<FontTraits>;

struct IconTraits {
  using Type = HICON;
  static constexpr Type none() { return nullptr; }
  static void release(Type icon) { DestroyIcon(icon); }
};
using Icon = Owned<IconTraits>;

}  // namespace corvid
