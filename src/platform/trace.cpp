#include "platform/trace.h"

#include "basic/format.h"
#include "basic/text.h"

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace corvid {
namespace {

constexpr std::int16_t kViewWidth = 80;
constexpr std::int64_t kSecondsWidth = 10;
constexpr const wchar_t* kTraceSection = L"CONFIG\\NimbusPF";

std::wstring rightAlignedSeconds(float seconds, const Locale& locale) {
  return right(spaces(8) + toText(seconds, locale), kSecondsWidth);
}

}  // namespace

void TraceLog::Trace(std::wstring_view message) noexcept {
  if (!isDebug) return;
  try {
    if (debugInmediato) {
      addToView(message);
    } else {
      appendToFile(message);
    }
  } catch (...) {
    return;  // whatever it is, a host must not learn of it
  }
}

void TraceLog::addToView(std::wstring_view message) {
  if (!debugView_.isMade()) debugView_.make(environment_.views).SetReportWidth(kViewWidth);
  debugView_.Add(std::wstring(message));
}

void TraceLog::appendToFile(std::wstring_view message) {
  if (fileName_.empty()) {
    fileName_ = environment_.settings.text(
        kApplication, kTraceSection, L"DEBUGFILE",
        environment_.folders.SHgetFolder(kDocumentsFolder) + L"\\FPRINTER.LOG");
  }
  const std::wstring line = format(environment_.clock.now(), L"dd/mm hh:nn:ss") + L" " +
                            rightAlignedSeconds(environment_.clock.secondsSinceMidnight(),
                                                environment_.locale.current()) +
                            L" " + std::wstring(message) + L"\r\n";
  std::ofstream file(std::filesystem::path(fileName_), std::ios::binary | std::ios::app);
  file << environment_.codePage.encode(line);
}

}  // namespace corvid
