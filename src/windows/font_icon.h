// The two pictures by which the screen font grows and shrinks: icon resources of the library, and
// of each program that this code is linked into.
#pragma once

#include "windows/drawing_handles.h"

namespace corvid {

enum class FontIcon { Grow, Shrink };

// A square icon of that many pixels, scaled from the nearest size that the resource holds; none
// when the module has no such resource or the system no memory for it.
[[nodiscard]] Icon loadFontIcon(FontIcon icon, int pixels);

}  // namespace corvid
