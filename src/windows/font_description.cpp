#include "windows/font_description.h"

#include <algorithm>
#include <cmath>

namespace corvid {

LOGFONTW describeFont(const FontChoice& font, int dotsPerInch) {
  LOGFONTW description{};
  const double height = std::round(font.size * dotsPerInch / kPointsPerInch);
  description.lfHeight = -std::max(static_cast<LONG>(height), LONG{1});
  description.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  description.lfItalic = font.italic ? TRUE : FALSE;
  description.lfCharSet = DEFAULT_CHARSET;
  description.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  font.name.copy(description.lfFaceName, LF_FACESIZE - 1);
  return description;
}

}  // namespace corvid
