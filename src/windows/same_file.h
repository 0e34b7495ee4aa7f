// Whether two paths lead to one file.
#pragma once

#include <string>

namespace corvid {

// True for two spellings of one path: letter case, short and long names, the prefix of long paths,
// links on the way. Two copies of a file are two files, wherever they lie. A file that is not there
// is known by its spelling alone, without regard to letter case.
[[nodiscard]] bool isSameFile(const std::wstring& a, const std::wstring& b);

}  // namespace corvid
