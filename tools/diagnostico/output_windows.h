// Texts to the console and to files.
#pragma once

#include <windows.h>

#include <string>

namespace corvid {

// Writes to standard output or standard error (STD_OUTPUT_HANDLE, STD_ERROR_HANDLE): as it is to a
// console, in UTF-8 with CR LF to a file or a pipe. A failure is passed over.
void writeToStandard(DWORD which, const std::wstring& text);

// Writes a file anew, in UTF-8 with CR LF; false when it was not written whole.
[[nodiscard]] bool writeFile(const std::wstring& file, const std::wstring& text);

}  // namespace corvid
