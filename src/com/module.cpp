#include "com/module.h"

#include <atomic>

namespace corvid {
namespace {

HINSTANCE theModule = nullptr;
std::atomic<long> theCount{0};
std::atomic<long> theLocks{0};
std::atomic<bool> theModuleIsPinned{false};

// The longest path that the system can name.
constexpr DWORD kLongestPath = 32768;

}  // namespace

void keepModuleHandle(HINSTANCE handle) noexcept { theModule = handle; }

std::wstring modulePath() noexcept {
  try {
    std::wstring path(kLongestPath, L'\0');
    const DWORD length = GetModuleFileNameW(theModule, path.data(), kLongestPath);
    path.resize(length < kLongestPath ? length : 0);
    return path;
  } catch (...) {
    return {};
  }
}

void ModuleCount::add() noexcept { ++theCount; }
void ModuleCount::subtract() noexcept { --theCount; }
long ModuleCount::value() noexcept { return theCount; }

void ModuleLocks::add() noexcept { ++theLocks; }
void ModuleLocks::subtract() noexcept {
  long locks = theLocks;
  while (locks > 0 && !theLocks.compare_exchange_weak(locks, locks - 1)) {
  }
}
bool ModuleLocks::areSet() noexcept { return theLocks > 0; }

void pinModule() noexcept {
  if (theModule == nullptr || theModuleIsPinned.exchange(true)) return;
  HMODULE pinned = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCWSTR>(theModule), &pinned);
}

}  // namespace corvid
