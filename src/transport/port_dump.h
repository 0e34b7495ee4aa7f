// The port dump: the raw bytes of the line, as a hex dump appended to a file.
#pragma once

#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/message_dialog.h"
#include "platform/settings.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace corvid {

// Process-wide, any thread; on only while its file is open. Lines end with CR LF, bytes in the text
// column stand as they are.
class PortDump {
 public:
  PortDump(AppendFiles& files, Clock& clock) : files_(files), clock_(clock) {}

  // Reads "DEBUG" (default "0"; on when not "0") and "DumpFile" of section "Config\ModComm" and
  // opens that file for appending. A file that cannot be opened shows a message, which runs the
  // host's message loop, and leaves the dump off. Opening an open dump closes it first.
  void open(const Settings& settings, MessageDialog& dialog);
  void close() noexcept { keep(nullptr, {}); }
  // Writes "Read " or "Send " with date and time, and after a blank the address of a stream that
  // has one, then 16 bytes a line, all in one write. Nothing while off. A failure ends the dump,
  // quietly.
  void write(std::string_view label, std::string_view bytes, const std::wstring& address = {});
  [[nodiscard]] bool isOn() const noexcept { return isOn_; }
  // The file's name; empty while off.
  [[nodiscard]] std::wstring fileName();

 private:
  void keep(std::unique_ptr<AppendFile> file, std::wstring name) noexcept;

  AppendFiles& files_;
  Clock& clock_;
  std::mutex gate_;
  std::atomic<bool> isOn_{false};
  std::unique_ptr<AppendFile> file_;
  std::wstring name_;
};

// The lines of a hex dump: upper-case pairs with a blank after each, padded to 48 columns, then
// the bytes themselves with "." for those below the blank; CR LF after each line.
[[nodiscard]] std::string hexDump(std::string_view bytes);

}  // namespace corvid
