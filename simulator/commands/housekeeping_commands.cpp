#include "simulator/commands/command_families.h"
#include "simulator/device/receipt.h"

namespace corvid::simulator {
namespace {

void openPlain(Machine& machine) {
  machine.beginDocument();
  if (machine.isTraining) {
    printTrainingMark(machine.paper);
  }
  printPlainHeading(machine.paper, machine.configuration, "DOCUMENTO NO FISCAL", machine.now());
  machine.isNonFiscalOpen = true;
}

void closePlain(Machine& machine) {
  printFoot(machine.paper, machine.configuration);
  machine.isNonFiscalOpen = false;
  if (!machine.isTraining) {
    machine.memory.recordNonFiscal();
    machine.keepCopy(kNonFiscalCopy, machine.memory.last().nonFiscal);
  }
}

}  // namespace

Reply printPlain(Machine& machine, std::string_view arguments, int doClose) {
  // The first character chooses a type style, of which this printer has one.
  if (!arguments.starts_with('0') || machine.document) {
    return refused();
  }
  if (!machine.isNonFiscalOpen) {
    openPlain(machine);
  }
  machine.paper.line(arguments.substr(1));
  if (doClose != 0) {
    closePlain(machine);
  }
  return done();
}

Reply openDrawer(Machine& machine, std::string_view arguments, int /*unused*/) {
  if (!arguments.empty()) {
    return refused();
  }
  ++machine.drawerOpenings;
  return done();
}

Reply resetErrors(Machine& machine, std::string_view arguments, int /*unused*/) {
  if (!arguments.empty()) {
    return refused();
  }
  if (machine.canPrint()) {
    machine.error = kNoError;
  }
  if (machine.isIdle()) {
    machine.customer = Customer{};
  }
  return done();
}

}  // namespace corvid::simulator
