// The two pictures by which the screen font grows and shrinks, drawn at any size.
#pragma once

#include "windows/drawing_handles.h"

namespace corvid {

enum class FontIcon { Grow, Shrink };

// A square icon with a soft edge; none when the system gives no memory for it.
[[nodiscard]] Icon drawFontIcon(FontIcon icon, int pixels);

}  // namespace corvid
