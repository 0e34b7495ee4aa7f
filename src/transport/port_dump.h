// The port dump: the raw bytes of the line, as a hex dump appended to a file.
#pragma once

#include "platform/clock.h"
#include "platform/message_dialog.h"
#include "platform/settings.h"

#include <fstream>
#include <string>
#include <string_view>

namespace corvid {

// Process-wide; on only while its file is open. Lines end with CR LF, bytes in the text column
// stand as they are.
class PortDump {
 public:
  PortDump(const Settings& settings, Clock& clock, MessageDialog& dialog)
      : settings_(settings), clock_(clock), dialog_(dialog) {}

  // Reads "DEBUG" (default "0"; on when not "0") and "DumpFile" of section "Config\ModComm" and
  // opens that file for appending. A file that cannot be opened shows a message and leaves the
  // dump off. Opening an open dump closes it first.
  void open();
  void close() noexcept;
  // Writes "Read " or "Send " with date and time, then 16 bytes a line. Nothing while off.
  void write(std::string_view label, std::string_view bytes);
  [[nodiscard]] bool isOn() const { return file_.is_open(); }

 private:
  const Settings& settings_;
  Clock& clock_;
  MessageDialog& dialog_;
  std::ofstream file_;
};

// The lines of a hex dump: upper-case pairs with a blank behind each, padded to 48 columns, then
// the bytes themselves with "." for those below the blank; CR LF behind each line.
[[nodiscard]] std::string hexDump(std::string_view bytes);

}  // namespace corvid
