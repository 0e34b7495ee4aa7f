// The diagnostic program, but for the system that it runs on.
#pragma once

#include "basic/text.h"
#include "exchange/thread_state.h"
#include "tools/diagnostico/machine_facts.h"

#include <string>

namespace corvid {

// The seam to the program's surroundings.
class DiagnosticSystem {
 public:
  virtual ~DiagnosticSystem() = default;
  // Standard output, and standard error.
  virtual void say(const std::wstring& text) = 0;
  virtual void complain(const std::wstring& text) = 0;
  // Writes a file anew, in UTF-8; false when it was not written whole.
  [[nodiscard]] virtual bool save(const std::wstring& file, const std::wstring& text) = 0;
  // Takes a folder as the one that is current for a host; false when there is no such folder.
  [[nodiscard]] virtual bool enterFolder(const std::wstring& folder) = 0;
  // The seams of the library, in that folder.
  [[nodiscard]] virtual Environment environment() = 0;
  [[nodiscard]] virtual MachineFacts facts() = 0;
};

// Does what the arguments ask for; the exit code, as diagnosticHelp() tells it. To printers it
// writes status requests and the query of the counters, and nothing else.
[[nodiscard]] int runDiagnostic(const Lines& arguments, DiagnosticSystem& system);

}  // namespace corvid
