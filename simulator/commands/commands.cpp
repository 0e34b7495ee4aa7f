#include "simulator/commands/commands.h"

#include "simulator/commands/command_families.h"

#include <array>

namespace corvid::simulator {
namespace {

constexpr int kInvoice = static_cast<int>(DocumentKind::Invoice);
constexpr int kDebitNote = static_cast<int>(DocumentKind::DebitNote);
constexpr int kCreditNote = static_cast<int>(DocumentKind::CreditNote);

constexpr std::array kCommands = {
    Command{"iS*", setCustomerField, kName},
    Command{"iR*", setCustomerField, kRif},
    Command{"iF*", setCustomerField, kAffectedInvoice},
    Command{"iI*", setCustomerField, kAffectedSerial},
    Command{"iD*", setCustomerField, kAffectedDate},
    Command{"i", setCustomerLine},
    Command{"jS*", setCustomerField, kName},
    Command{"jS", setCustomerField, kName},
    Command{"jR*", setCustomerField, kRif},
    Command{"jR", setCustomerField, kRif},
    Command{"jF*", setCustomerField, kAffectedInvoice},
    Command{"jF", setCustomerField, kAffectedInvoice},
    Command{"j", setShortCustomerLine},

    Command{" ", sellItem, 0},
    Command{"!", sellItem, 1},
    Command{"\"", sellItem, 2},
    Command{"#", sellItem, 3},
    Command{"$", sellItem, 4},
    Command{"d0", refundItem, 0},
    Command{"d1", refundItem, 1},
    Command{"d2", refundItem, 2},
    Command{"d3", refundItem, 3},
    Command{"d4", refundItem, 4},
    Command{"\xA0", voidItem, 0},
    Command{"\xA1", voidItem, 1},
    Command{"\xA2", voidItem, 2},
    Command{"\xA3", voidItem, 3},
    Command{"\xA4", voidItem, 4},
    Command{"F+", sellGeneral, kInvoice},
    Command{"F-", voidGeneral, kInvoice},
    Command{"D+", sellGeneral, kDebitNote},
    Command{"D-", voidGeneral, kDebitNote},
    Command{"C+", sellGeneral, kCreditNote},
    Command{"C-", voidGeneral, kCreditNote},

    Command{"3", subtotal, 1},
    Command{"4", subtotal, 0},
    Command{"p-", adjustByDigits, kPercent},
    Command{"q-", adjustByDigits, 0},
    Command{"GP-*", adjustGeneral, kPercent},
    Command{"GP+*", adjustGeneral, kPercent | kSurcharge},
    Command{"GM-*", adjustGeneral, 0},
    Command{"GM+*", adjustGeneral, kSurcharge},
    Command{"1", payAll},
    Command{"2", pay, 0},
    Command{"f", pay, 1},
    Command{"7", cancel},

    Command{"80", printPlain, 0},
    Command{"81", printPlain, 1},

    Command{"w", openDrawer, 0, false},
    Command{"e", resetErrors, 0, false},
    Command{"5", signOn},
    Command{"6", signOff},
    Command{"T1", setTraining, 1},
    Command{"T2", setTraining, 0},
    Command{"PJ", setFlag, 0, false},
    Command{"PH", setProgrammedLine, 0, false},
    Command{"PG", setDate, 0, false},
    Command{"PF", setTime, 0, false},

    Command{"S1", queryState, kCounters, false},
    Command{"S2", queryState, kDocument, false},
    Command{"S3", queryState, kRates, false},
    Command{"S4", queryState, kPayments, false},
    Command{"U0X", querySummary, 1, false},
    Command{"U0Z", querySummary, 0, false},
    Command{"U2A", queryZReports, 1, false},
    Command{"U3A", queryZReports, 0, false},
    Command{"I0X", reportDay, 0},
    Command{"I0Z", reportDay, 1},
    Command{"I2A", reportZReports, 1},
    Command{"I3A", reportZReports, 0},
    Command{"R", reprint},
};

const Command* commandOf(std::string_view text) {
  const Command* longest = nullptr;
  for (const Command& command : kCommands) {
    const bool isLonger = longest == nullptr || command.prefix.size() > longest->prefix.size();
    longest = isLonger && text.starts_with(command.prefix) ? &command : longest;
  }
  return longest;
}

}  // namespace

Reply execute(Machine& machine, std::string_view text) {
  const Command* command = commandOf(text);
  if (command == nullptr || (command->needsPaper && !machine.canPrint())) {
    return refused();
  }
  return command->run(machine, text.substr(command->prefix.size()), command->parameter);
}

}  // namespace corvid::simulator
