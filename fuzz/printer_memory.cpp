// The simulated printer's memory from any text; the check of its last line is put right, or no
// input would get any further.
#include "input.h"
#include "simulator/device/memory_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid::simulator;
  corvid::fuzz::Input input(data, size);
  const std::string text = std::string(input.rest()) + "\n";
  const std::string sealed = text + "end " + checkOf(text) + "\n";
  Machine machine({}, [] { return LocalTime{2026, 3, 14, 10, 30, 15}; });
  const std::string before = memoryText(machine);
  try {
    restoreMemory(sealed, machine);
    corvid::fuzz::require(memoryText(machine) == sealed, "a memory is written as it was read");
  } catch (const DamagedMemory&) {
    corvid::fuzz::require(memoryText(machine) == before, "damage leaves the machine as it was");
  }
  return 0;
}
