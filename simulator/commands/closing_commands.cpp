#include "simulator/commands/command_families.h"
#include "simulator/device/receipt.h"

#include <array>

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

char copyKindOf(DocumentKind kind) {
  constexpr std::array<char, kDocumentKinds> kKinds = {kInvoiceCopy, kDebitNoteCopy,
                                                       kCreditNoteCopy};
  return kKinds.at(static_cast<std::size_t>(kind));
}

void remember(Machine& machine, const Document& document) {
  machine.memory.record(document, machine.now());
  machine.keepCopy(copyKindOf(document.kind()), machine.memory.last().of(document.kind()));
}

void closeDocument(Machine& machine) {
  printClosing(machine.paper, *machine.document, machine.configuration);
  if (!machine.isTraining) {
    remember(machine, *machine.document);
  }
  machine.document.reset();
  machine.customer = Customer{};
}

Reply payAmount(Machine& machine, std::size_t method, Amount amount, bool isRefund) {
  std::optional<Document>& document = machine.document;
  if (!document || (document->kind() == DocumentKind::CreditNote) != isRefund) {
    return refused();
  }
  const bool isFirst = !document->hasPayments();
  if (!document->pay(method, amount)) {
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

Reply payAll(Machine& machine, std::string_view arguments, int /*unused*/) {
  const auto method = takeDigits(arguments, 2);
  if (!method || !arguments.empty()) {
    return refused();
  }
  return payAmount(machine, static_cast<std::size_t>(*method), 0, false);
}

Reply pay(Machine& machine, std::string_view arguments, int isRefund) {
  const auto method = takeDigits(arguments, 2);
  const auto amount = onlyField(arguments, paymentFormat(machine), kAmountDecimals);
  if (!method || !amount) {
    return refused();
  }
  return payAmount(machine, static_cast<std::size_t>(*method), *amount, isRefund != 0);
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
