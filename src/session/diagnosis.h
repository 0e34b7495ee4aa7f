// What a person who supports a shop wants to know of an installation, as one text.
#pragma once

#include "session/printer_session.h"

#include <string>

namespace corvid {

// What the module and the system tell of themselves.
struct Installation {
  std::wstring version;  // of the library, with its bitness
  std::wstring file;     // the library's full path
  std::wstring system;   // the version of Windows
  std::wstring region;   // code page and locale
};

// In Spanish, one fact a line, CR LF after each: the installation, every setting with where it came
// from, the ports that exist, the session's port and how its driver reads (where that was seen:
// reads of exactly what is waiting never show it), the last outcome, trace and dump. Asks the
// printer nothing and changes nothing. No setting holds a secret; names of files are told.
[[nodiscard]] std::wstring diagnosis(PrinterSession& session, const Installation& installation);

}  // namespace corvid
