#include "simulator/command_families.h"
#include "simulator/receipt.h"

namespace corvid::simulator {
namespace {

void openPlain(Machine& machine) {
  printPlainHeading(machine.paper, machine.configuration, "DOCUMENTO NO FISCAL", machine.now());
  machine.isNonFiscalOpen = true;
}

void closePlain(Machine& machine) {
  printFoot(machine.paper, machine.configuration);
  machine.isNonFiscalOpen = false;
  machine.memory.recordNonFiscal();
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

Reply signOn(Machine& machine, std::string_view arguments, int /*unused*/) {
  constexpr std::int64_t kLastCashier = 99;
  const auto cashier = takeDigits(arguments, 5);
  if (!cashier || *cashier > kLastCashier || !arguments.empty() || !machine.isIdle()) {
    return refused();
  }
  machine.configuration.cashier = static_cast<int>(*cashier);
  return done();
}

Reply signOff(Machine& machine, std::string_view arguments, int /*unused*/) {
  if (!arguments.empty() || !machine.isIdle()) {
    return refused();
  }
  machine.configuration.cashier = 0;
  return done();
}

Reply setTraining(Machine& machine, std::string_view arguments, int isOn) {
  if (!arguments.empty() || !machine.isIdle()) {
    return refused();
  }
  machine.isTraining = isOn != 0;
  return done();
}

Reply setFlag(Machine& machine, std::string_view arguments, int /*unused*/) {
  const auto flag = takeDigits(arguments, 2);
  const auto value = takeDigits(arguments, 2);
  if (!flag || !value || !arguments.empty() || *flag >= static_cast<int>(kFlagCount) ||
      !machine.isIdle()) {
    return refused();
  }
  machine.configuration.flags.at(static_cast<std::size_t>(*flag)) = static_cast<int>(*value);
  return done();
}

}  // namespace corvid::simulator
