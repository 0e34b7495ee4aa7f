#include "simulator/commands/command_families.h"
#include "simulator/line/bytes.h"

#include <array>

namespace corvid::simulator {
namespace {

std::string& fieldOf(Customer& customer, int field) {
  switch (field) {
    case kName:
      return customer.name;
    case kRif:
      return customer.rif;
    case kAffectedInvoice:
      return customer.affectedInvoice;
    case kAffectedSerial:
      return customer.affectedSerial;
    default:
      return customer.affectedDate;
  }
}

Reply setLine(Machine& machine, int number, std::string_view text) {
  machine.customer.lines[number] = withoutTrailingBlanks(text);
  return done();
}

}  // namespace

// Customer data stands in the heading, which is on paper once a document is open.
Reply setCustomerField(Machine& machine, std::string_view text, int field) {
  if (!machine.isIdle()) {
    return refused();
  }
  fieldOf(machine.customer, field) = withoutTrailingBlanks(text);
  return done();
}

Reply setCustomerLine(Machine& machine, std::string_view arguments, int /*unused*/) {
  const auto number = takeDigits(arguments, 2);
  if (!number || !machine.isIdle()) {
    return refused();
  }
  return setLine(machine, static_cast<int>(*number), arguments);
}

Reply setShortCustomerLine(Machine& machine, std::string_view arguments, int /*unused*/) {
  const auto& lines = machine.customer.lines;
  const int next = lines.empty() ? 1 : lines.rbegin()->first + 1;
  const std::string digits = std::to_string(next);
  if (!machine.isIdle()) {
    return refused();
  }
  // "10" and a line may also be line 1 and a text that begins with 0: the next number decides.
  if (arguments.starts_with(digits)) {
    return setLine(machine, next, arguments.substr(digits.size()));
  }
  const auto number = takeDigits(arguments, 1);
  return number ? setLine(machine, static_cast<int>(*number), arguments) : refused();
}

}  // namespace corvid::simulator
