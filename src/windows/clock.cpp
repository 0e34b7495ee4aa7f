#include "windows/clock.h"

#include "windows/system_library.h"

namespace corvid {
namespace {

// Known since Windows 10 1803; older systems refuse it, and the compiler's headers lack it.
constexpr DWORD kHighResolution = 0x2;
constexpr LONGLONG kOneMillisecond = 10'000;  // in units of 100 ns
constexpr UINT kFinestTick = 1;               // milliseconds

using PeriodCall = UINT(WINAPI*)(UINT milliseconds);

PeriodCall periodCall(const char* name) {
  static HMODULE const library = loadSystemLibrary(L"winmm.dll");
  if (library == nullptr) return nullptr;
  return reinterpret_cast<PeriodCall>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

bool callPeriod(const char* name) {
  const PeriodCall call = periodCall(name);
  return call != nullptr && call(kFinestTick) == 0;
}

}  // namespace

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

bool WindowsSleepCalls::makeTimer() {
  if (std::exchange(triedTimer_, true)) return static_cast<bool>(timer_);
  timer_ = KernelHandle(
      CreateWaitableTimerExW(nullptr, nullptr, kHighResolution, SYNCHRONIZE | TIMER_MODIFY_STATE));
  return static_cast<bool>(timer_);
}

bool WindowsSleepCalls::sleepByTimer() {
  if (!makeTimer()) return false;
  LARGE_INTEGER due;
  due.QuadPart = -kOneMillisecond;  // from now on
  // Some systems refuse a period with this kind of timer.
  if (SetWaitableTimer(timer_.get(), &due, 0, nullptr, nullptr, FALSE) == FALSE) return false;
  return WaitForSingleObject(timer_.get(), INFINITE) == WAIT_OBJECT_0;
}

bool WindowsSleepCalls::refineTicks() { return callPeriod("timeBeginPeriod"); }

void WindowsSleepCalls::restoreTicks() { callPeriod("timeEndPeriod"); }

}  // namespace corvid
