// Lines added to text that is on the screen.
#pragma once

namespace bench {

// Each lasts until the control holds all lines and has painted them.

// Seconds to add that many lines to a report that is shown.
[[nodiscard]] double addToShownReport(int count);

// Seconds to trace that many lines while the debug view is shown.
[[nodiscard]] double traceToShownView(int count);

// Seconds to add the same lines to a bare rich edit control of the same kind, size and font, each
// by selecting the end of the text and replacing the selection.
[[nodiscard]] double addToBareControl(int count);

// Seconds of the system's most exact clock.
[[nodiscard]] double now();

}  // namespace bench
