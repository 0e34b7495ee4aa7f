#include "platform/trace_file.h"

#include <utility>

namespace corvid {
namespace {

constexpr const wchar_t* kTraceSection = L"CONFIG\\NimbusPF";

}  // namespace

void TraceFile::follow(const Settings& settings) {
  const bool isOn = settings.boolean(kApplication, kSessionSection, L"IsDebug", false);
  const bool isForView = settings.boolean(kApplication, kSessionSection, L"DebugInmediato", false);
  auto copy = std::make_shared<const Settings>(settings);
  const std::lock_guard lock(gate_);
  settings_ = std::move(copy);
  isForView_ = isForView;
  isFirst_ = true;
  name_.clear();
  file_.reset();
  isOn_ = isOn;
}

TraceFile::Plan TraceFile::next() {
  const std::lock_guard lock(gate_);
  return {settings_, isForView_, std::exchange(isFirst_, false)};
}

void TraceFile::append(std::string_view line, AppendFiles& files, Folders& folders) {
  const std::lock_guard lock(gate_);
  if (!file_) open(files, folders);
  if (file_ && !file_->append(line)) file_.reset();
}

void TraceFile::open(AppendFiles& files, Folders& folders) {
  if (name_.empty()) {
    name_ = settings_->fileName(kApplication, kTraceSection, L"DEBUGFILE",
                                folders.SHgetFolder(kDocumentsFolder) + L"\\FPRINTER.LOG");
  }
  std::wstring ignored;
  file_ = files.open(name_, ignored);
}

void TraceFile::close() noexcept {
  const std::lock_guard lock(gate_);
  file_.reset();
}

std::wstring TraceFile::name() const {
  const std::lock_guard lock(gate_);
  return name_;
}

}  // namespace corvid
