#include "simulator/command_families.h"
#include "simulator/receipt.h"

namespace corvid::simulator {
namespace {

// The whole text as one field.
std::optional<std::int64_t> onlyField(std::string_view text, FieldFormat format, int decimals) {
  const auto value = takeField(text, format, decimals);
  return text.empty() ? value : std::nullopt;
}

FieldFormat paymentFormat(const Machine& machine) {
  return amountFormats(machine.configuration.flags.at(21)).payment;
}

Reply adjust(Machine& machine, std::optional<std::int64_t> value, int parts) {
  if (!value || !machine.document) {
    return refused();
  }
  const Adjustment adjustment{(parts & kPercent) != 0, (parts & kSurcharge) == 0, *value};
  const auto amount = machine.document->adjust(adjustment);
  if (!amount) {
    return refused();
  }
  printAdjustment(machine.paper, adjustment, *amount);
  return done();
}

void closeDocument(Machine& machine) {
  printClosing(machine.paper, *machine.document, machine.configuration);
  if (!machine.isTraining) {
    machine.memory.record(*machine.document, machine.now());
  }
  machine.document.reset();
  machine.customer = Customer{};
}

Reply payAmount(Machine& machine, std::size_t means, Amount amount, int kind) {
  std::optional<Document>& document = machine.document;
  if (!document || document->kind() != static_cast<DocumentKind>(kind)) {
    return refused();
  }
  const bool isFirst = !document->hasPayments();
  if (!document->pay(means, amount)) {
    return refused();
  }
  if (isFirst) {
    printTotals(machine.paper, *document);
  }
  printPayment(machine.paper, document->payments().back());
  if (document->left() == 0) {
    closeDocument(machine);
  }
  return done();
}

}  // namespace

Reply subtotal(Machine& machine, std::string_view arguments, int doPrint) {
  if (!arguments.empty() || !machine.document || machine.document->hasPayments()) {
    return refused();
  }
  if (doPrint != 0) {
    printSubtotal(machine.paper, *machine.document);
  }
  return done();
}

Reply adjustByDigits(Machine& machine, std::string_view arguments, int parts) {
  constexpr FieldFormat kPercentFormat{5, 2};
  const FieldFormat format = (parts & kPercent) != 0 ? kPercentFormat : paymentFormat(machine);
  return adjust(machine, onlyField(arguments, format, kAmountDecimals), parts);
}

Reply adjustGeneral(Machine& machine, std::string_view arguments, int parts) {
  return adjust(machine, commaNumber(arguments, kAmountDecimals), parts);
}

Reply payAll(Machine& machine, std::string_view arguments, int kind) {
  const auto means = takeDigits(arguments, 2);
  if (!means || !arguments.empty()) {
    return refused();
  }
  return payAmount(machine, static_cast<std::size_t>(*means), 0, kind);
}

Reply pay(Machine& machine, std::string_view arguments, int kind) {
  const auto means = takeDigits(arguments, 2);
  const auto amount = onlyField(arguments, paymentFormat(machine), kAmountDecimals);
  if (!means || !amount) {
    return refused();
  }
  return payAmount(machine, static_cast<std::size_t>(*means), *amount, kind);
}

Reply cancel(Machine& machine, std::string_view arguments, int /*unused*/) {
  if (!arguments.empty() || machine.isNonFiscalOpen ||
      (!machine.document && machine.customer.isEmpty())) {
    return refused();
  }
  if (machine.document) {
    printCancelled(machine.paper, machine.configuration);
  }
  machine.document.reset();
  machine.customer = Customer{};
  return done();
}

}  // namespace corvid::simulator
