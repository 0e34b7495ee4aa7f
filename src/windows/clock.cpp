#include "windows/clock.h"

#include <windows.h>

namespace corvid {

float WindowsClock::secondsSinceMidnight() {
  SYSTEMTIME time;
  GetLocalTime(&time);
  const int seconds = (((time.wHour * 60) + time.wMinute) * 60) + time.wSecond;
  return static_cast<float>(seconds + (time.wMilliseconds / 1000.0));
}

double WindowsClock::monotonicSeconds() {
  LARGE_INTEGER ticks;
  LARGE_INTEGER ticksPerSecond;
  QueryPerformanceCounter(&ticks);
  QueryPerformanceFrequency(&ticksPerSecond);
  return static_cast<double>(ticks.QuadPart) / static_cast<double>(ticksPerSecond.QuadPart);
}

Date WindowsClock::now() {
  SYSTEMTIME time;
  GetLocalTime(&time);
  return fromParts({time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond})
      .value_or(Date{});
}

void WindowsClock::rest() { Sleep(1); }

void WindowsClock::restLonger() { Sleep(2); }

}  // namespace corvid
