#include "platform/trace.h"

#include "basic/format.h"
#include "basic/text.h"

#include <cstdint>

namespace corvid {
namespace {

constexpr std::int16_t kViewWidth = 80;
constexpr std::int64_t kSecondsWidth = 10;
constexpr const wchar_t* kTraceSection = L"CONFIG\\NimbusPF";

std::wstring rightAlignedSeconds(float seconds, const Locale& locale) {
  return right(spaces(8) + toText(seconds, locale), kSecondsWidth);
}

}  // namespace

void TraceLog::follow(const Settings& settings) {
  settings_ = settings;
  isDebug_ = settings.boolean(kApplication, kSessionSection, L"IsDebug", false);
  debugInmediato_ = settings.boolean(kApplication, kSessionSection, L"DebugInmediato", false);
  toldSettings_ = false;
  fileName_.clear();
  closeFile();
}

void TraceLog::Trace(std::wstring_view message) noexcept {
  if (!isDebug_) return;
  try {
    if (!std::exchange(toldSettings_, true)) {
      write(L"Settings: " + settings_->filePath(kApplication));
    }
    write(message);
  } catch (...) {
    return;  // whatever it is, a host must not learn of it
  }
}

void TraceLog::write(std::wstring_view message) {
  if (debugInmediato_) {
    addToView(message);
  } else {
    appendToFile(message);
  }
}

void TraceLog::addToView(std::wstring_view message) {
  if (!debugView_.isMade())
    debugView_.make(environment_.views, *settings_).SetReportWidth(kViewWidth);
  debugView_.Add(std::wstring(message));
}

void TraceLog::appendToFile(std::wstring_view message) {
  if (!file_ && !openFile()) return;
  const std::wstring line = format(environment_.clock.now(), L"dd/mm hh:nn:ss") + L" " +
                            rightAlignedSeconds(environment_.clock.secondsSinceMidnight(),
                                                environment_.locale.current()) +
                            L" " + std::wstring(message) + L"\r\n";
  if (!file_->append(environment_.codePage.encode(line))) closeFile();
}

bool TraceLog::openFile() {
  if (fileName_.empty()) {
    fileName_ =
        settings_->fileName(kApplication, kTraceSection, L"DEBUGFILE",
                            environment_.folders.SHgetFolder(kDocumentsFolder) + L"\\FPRINTER.LOG");
  }
  std::wstring ignored;
  file_ = environment_.files.open(fileName_, ignored);
  return file_ != nullptr;
}

}  // namespace corvid
