#include "platform/trace.h"

#include "basic/format.h"
#include "basic/text.h"

#include <cstdint>

namespace corvid {
namespace {

constexpr std::int16_t kViewWidth = 80;
constexpr std::int64_t kSecondsWidth = 10;

std::wstring rightAlignedSeconds(float seconds, const Locale& locale) {
  return right(spaces(8) + toText(seconds, locale), kSecondsWidth);
}

}  // namespace

void TraceLog::Trace(std::wstring_view message) noexcept {
  if (!isOn()) return;
  try {
    const TraceFile::Plan plan = file_.next();
    if (plan.isFirst) write(L"Settings: " + plan.settings->filePath(kApplication), plan);
    write(message, plan);
  } catch (...) {
    return;  // whatever it is, a host must not learn of it
  }
}

void TraceLog::write(std::wstring_view message, const TraceFile::Plan& plan) {
  if (plan.isForView) {
    addToView(message, *plan.settings);
  } else {
    appendToFile(message);
  }
}

void TraceLog::addToView(std::wstring_view message, const Settings& settings) {
  if (!debugView_.isMade())
    debugView_.make(environment_.views, settings).SetReportWidth(kViewWidth);
  debugView_.Add(std::wstring(message));
}

void TraceLog::appendToFile(std::wstring_view message) {
  const std::wstring line = format(environment_.clock.now(), L"dd/mm hh:nn:ss") + L" " +
                            rightAlignedSeconds(environment_.clock.secondsSinceMidnight(),
                                                environment_.locale.current()) +
                            L" " + std::wstring(message) + L"\r\n";
  file_.append(environment_.codePage.encode(line), environment_.files, environment_.folders);
}

}  // namespace corvid
