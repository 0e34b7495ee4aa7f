#include "simulator/device/local_time.h"

#include <windows.h>

namespace corvid::simulator {

LocalTime systemTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

}  // namespace corvid::simulator
