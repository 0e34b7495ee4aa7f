// This module: its handle, its path, and the count of what keeps it loaded.
#pragma once

#include "com/platform.h"

#include <string>

namespace corvid {

// Kept by the entry point; null in a program that has the library linked into it.
void keepModuleHandle(HINSTANCE handle) noexcept;
// The full path of the module's file; empty on failure, also for lack of memory.
[[nodiscard]] std::wstring modulePath() noexcept;

// Counts live objects and windows over all threads. While it is above zero the module must not be
// unloaded.
class ModuleCount {
 public:
  static void add() noexcept;
  static void subtract() noexcept;
  [[nodiscard]] static long value() noexcept;
};

// Counts the locks of hosts, apart from what is alive: one that is taken back without having been
// set changes nothing.
class ModuleLocks {
 public:
  static void add() noexcept;
  static void subtract() noexcept;
  [[nodiscard]] static bool areSet() noexcept;
};

// Keeps the module loaded until the process ends, whatever its count: the compiler's run time keeps
// something for each thread that handled an exception, and frees it by its own code when the thread
// ends.
void pinModule() noexcept;

// Member of every object that keeps the module loaded.
class ModuleReference {
 public:
  ModuleReference() noexcept { ModuleCount::add(); }
  ModuleReference(const ModuleReference&) noexcept { ModuleCount::add(); }
  ModuleReference& operator=(const ModuleReference&) noexcept = default;
  ~ModuleReference() { ModuleCount::subtract(); }
};

}  // namespace corvid
