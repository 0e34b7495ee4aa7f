// The simulated printer: any commands, a line each.
#include "input.h"
#include "simulator/commands/commands.h"
#include "simulator/device/memory_text.h"

namespace corvid::simulator {
namespace {

using fuzz::require;

Machine newMachine() {
  return Machine({}, [] { return LocalTime{2026, 3, 14, 10, 30, 15}; });
}

void checkCommand(Machine& machine, std::string_view command) {
  const std::string memory = memoryText(machine);
  const std::size_t lines = machine.paper.lines().size();
  const bool isIdle = machine.isIdle();
  const Reply reply = execute(machine, command);
  require((reply.kind == Reply::Kind::Data) == !reply.blocks.empty(), "data alone has blocks");
  if (reply.kind == Reply::Kind::Done) return;
  require(machine.paper.lines().size() == lines && machine.isIdle() == isIdle &&
              memoryText(machine) == memory,
          "a refused command and a query change nothing");
}

}  // namespace
}  // namespace corvid::simulator

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid::simulator;
  corvid::fuzz::Input input(data, size);
  Machine machine = newMachine();
  while (!input.isEmpty()) checkCommand(machine, input.bytes());
  Machine restored = newMachine();
  restoreMemory(memoryText(machine), restored);
  corvid::fuzz::require(memoryText(restored) == memoryText(machine),
                        "what the printer remembers can be kept");
  return 0;
}
