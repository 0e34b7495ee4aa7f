#include "simulator/command_families.h"
#include "simulator/receipt.h"
#include "simulator/status_replies.h"

namespace corvid::simulator {

Reply queryCounters(Machine& machine, std::string_view arguments, int /*unused*/) {
  return arguments.empty() ? data({countersReply(machine)}) : refused();
}

Reply queryRates(Machine& machine, std::string_view arguments, int /*unused*/) {
  return arguments.empty() ? data({ratesReply(machine)}) : refused();
}

Reply queryClosures(Machine& machine, std::string_view arguments, int /*unused*/) {
  const auto first = takeDigits(arguments, 6);
  const auto last = takeDigits(arguments, 6);
  if (!first || !last || !arguments.empty()) {
    return refused();
  }
  std::vector<std::string> blocks;
  for (const Closure& closure : machine.memory.closures()) {
    if (closure.last.closures >= *first && closure.last.closures <= *last) {
      blocks.push_back(closureReply(closure));
    }
  }
  return blocks.empty() ? refused() : data(std::move(blocks));
}

Reply reportDay(Machine& machine, std::string_view arguments, int doClose) {
  if (!arguments.empty() || !machine.isIdle() || machine.isTraining) {
    return refused();
  }
  printPlainHeading(machine.paper, machine.configuration, doClose != 0 ? "REPORTE Z" : "REPORTE X",
                    machine.now());
  printDay(machine.paper, machine.memory.today(), machine.memory.last(),
           machine.configuration.rates);
  printFoot(machine.paper, machine.configuration);
  machine.memory.recordReport();
  if (doClose != 0) {
    machine.memory.closeDay(machine.now());
  }
  return done();
}

}  // namespace corvid::simulator
