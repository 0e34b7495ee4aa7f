#include "com/module.h"

#include <atomic>

namespace corvid {
namespace {

HINSTANCE theModule = nullptr;
std::atomic<long> theCount{0};

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

}  // namespace corvid
