// The command line of corvid-diagnostico.
#pragma once

#include "basic/text.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvid {

struct DiagnosticArguments {
  bool isHelpWanted = false;
  bool searches = false;               // asks at every place for a printer
  bool isSimulated = false;            // a printer inside the process in place of every port
  bool tellsPrivateData = false;       // also what the report leaves out otherwise
  std::optional<std::int16_t> port;    // the printer to look at, 1 to 99
  std::optional<std::wstring> folder;  // of a host; nothing: the current one
  std::optional<std::wstring> report;  // the file to write; nothing: none
};

struct ParsedDiagnosticArguments {
  DiagnosticArguments arguments;
  std::wstring error;  // in Spanish; empty: none
};

// Reads the arguments after the program's name.
[[nodiscard]] ParsedDiagnosticArguments parsedDiagnosticArguments(const Lines& arguments);

// What --ayuda shows, LF after each line.
[[nodiscard]] std::wstring diagnosticHelp();

}  // namespace corvid
