// How wide the printer's lines are.
#pragma once

namespace corvid {

// Characters that the printer takes of a line of text, of a name and of an address line.
inline constexpr int kLineWidth = 40;

}  // namespace corvid
