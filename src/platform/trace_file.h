// Where the process's trace goes.
#pragma once

#include "platform/append_file.h"
#include "platform/folders.h"
#include "platform/settings.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace corvid {

// The settings that the newest session traces by, and the one file of all threads. Any thread.
class TraceFile {
 public:
  // What a line is written by.
  struct Plan {
    std::shared_ptr<const Settings> settings;
    bool isForView = false;  // to the debug view instead of the file
    bool isFirst = false;    // of these settings
  };

  // Takes over the newest session's settings, and the file's name with the next line.
  void follow(const Settings& settings);
  [[nodiscard]] bool isOn() const noexcept { return isOn_; }
  // To be asked once for each line while the trace is on.
  [[nodiscard]] Plan next();
  // Opens the file first where it is closed; a failure loses the line, quietly.
  void append(std::string_view line, AppendFiles& files, Folders& folders);
  // Closes the file; the next line opens it again.
  void close() noexcept;
  // Empty until the first line was appended.
  [[nodiscard]] std::wstring name() const;

 private:
  void open(AppendFiles& files, Folders& folders);

  mutable std::mutex gate_;
  std::atomic<bool> isOn_{false};
  std::shared_ptr<const Settings> settings_;
  bool isForView_ = false;
  bool isFirst_ = true;
  std::wstring name_;
  std::unique_ptr<AppendFile> file_;
};

}  // namespace corvid
