#include "preview/text_search.h"

#include "basic/text.h"

#include <string>

namespace corvid {

std::optional<std::int32_t> findBackward(std::wstring_view text, std::wstring_view wanted,
                                         std::int32_t end) {
  if (wanted.empty()) return std::nullopt;
  const std::wstring folded = lowerCase(text);
  const std::wstring part = lowerCase(wanted);
  std::size_t found = std::wstring::npos;
  const auto limit = static_cast<std::size_t>(end);
  if (limit >= part.size()) found = folded.rfind(part, limit - part.size());
  if (found == std::wstring::npos) found = folded.rfind(part);
  if (found == std::wstring::npos) return std::nullopt;
  return static_cast<std::int32_t>(found);
}

}  // namespace corvid
