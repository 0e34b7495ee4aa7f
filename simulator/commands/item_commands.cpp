#include "simulator/commands/command_families.h"
#include "simulator/device/receipt.h"

namespace corvid::simulator {
namespace {

std::optional<Item> itemOfFields(const Machine& machine, std::string_view arguments, int rate) {
  const AmountFormats formats = amountFormats(machine.configuration.flags.at(21));
  const auto price = takeField(arguments, formats.price, kPriceDecimals);
  const auto quantity = takeField(arguments, formats.quantity, kQuantityDecimals);
  if (!price || !quantity) {
    return std::nullopt;
  }
  return Item{static_cast<std::size_t>(rate), *price, *quantity, std::string(arguments), ""};
}

// What stands before `mark`, which goes too; nothing when the mark is not there.
std::optional<std::string_view> takeUntil(std::string_view& rest, std::string_view mark) {
  const auto at = rest.find(mark);
  if (at == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view taken = rest.substr(0, at);
  rest.remove_prefix(at + mark.size());
  return taken;
}

std::optional<std::int64_t> takeNumber(std::string_view& rest, int decimals, int scale) {
  const auto text = takeUntil(rest, "||");
  const auto number = text ? commaNumber(*text, decimals) : std::nullopt;
  return number ? std::optional(*number * scale) : std::nullopt;
}

// The code between bars, or nothing where the description comes at once.
std::string takeCode(std::string_view& rest) {
  if (!rest.starts_with('|')) {
    return "";
  }
  std::string_view after = rest.substr(1);
  const auto code = takeUntil(after, "|");
  rest = code ? after : rest;
  return std::string(code.value_or(""));
}

std::optional<Item> itemOfBars(std::string_view arguments) {
  constexpr int kPriceScale = 100;  // of two decimals
  const auto rate = takeDigits(arguments, 1);
  const auto price = takeNumber(arguments, kAmountDecimals, kPriceScale);
  const auto quantity = takeNumber(arguments, kQuantityDecimals, 1);
  if (!rate || !price || !quantity) {
    return std::nullopt;
  }
  const std::string code = takeCode(arguments);
  return Item{static_cast<std::size_t>(*rate), *price, *quantity, std::string(arguments), code};
}

bool canOpen(const Machine& machine) { return machine.isIdle() && !machine.isMemoryFull; }

void printDocumentHeading(Machine& machine, DocumentKind kind) {
  machine.beginDocument();
  if (machine.isTraining) {
    printTrainingMark(machine.paper);
  }
  printHeading(machine.paper, machine.configuration, machine.customer, kind,
               machine.memory.nextNumber(kind), machine.now());
}

Reply openWith(Machine& machine, const Item& item, DocumentKind kind) {
  Document document(kind, machine.configuration.rates, machine.configuration.igtf);
  const auto amount = document.sell(item);
  if (!amount || !canOpen(machine)) {
    return refused();
  }
  printDocumentHeading(machine, kind);
  printItem(machine.paper, item, *amount);
  machine.document = std::move(document);
  return done();
}

// The first item opens the document.
Reply sell(Machine& machine, const std::optional<Item>& item, DocumentKind kind) {
  if (!item) {
    return refused();
  }
  if (!machine.document) {
    return openWith(machine, *item, kind);
  }
  const bool isSameKind = machine.document->kind() == kind;
  const auto amount = isSameKind ? machine.document->sell(*item) : std::nullopt;
  if (!amount) {
    return refused();
  }
  printItem(machine.paper, *item, *amount);
  return done();
}

Reply takeBack(Machine& machine, const std::optional<Item>& item) {
  const auto amount = item && machine.document ? machine.document->takeBack(*item) : std::nullopt;
  if (!amount) {
    return refused();
  }
  printTakenBack(machine.paper, *item, *amount);
  return done();
}

}  // namespace

Reply sellItem(Machine& machine, std::string_view arguments, int rate) {
  return sell(machine, itemOfFields(machine, arguments, rate), DocumentKind::Invoice);
}

Reply refundItem(Machine& machine, std::string_view arguments, int rate) {
  return sell(machine, itemOfFields(machine, arguments, rate), DocumentKind::CreditNote);
}

Reply voidItem(Machine& machine, std::string_view arguments, int rate) {
  return takeBack(machine, itemOfFields(machine, arguments, rate));
}

Reply sellGeneral(Machine& machine, std::string_view arguments, int kind) {
  return sell(machine, itemOfBars(arguments), static_cast<DocumentKind>(kind));
}

Reply voidGeneral(Machine& machine, std::string_view arguments, int kind) {
  const bool isSameKind =
      machine.document && machine.document->kind() == static_cast<DocumentKind>(kind);
  return isSameKind ? takeBack(machine, itemOfBars(arguments)) : refused();
}

}  // namespace corvid::simulator
