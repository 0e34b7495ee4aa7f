#include "simulator/commands/status_replies.h"

#include "simulator/commands/reply_fields.h"

namespace corvid::simulator {
namespace {

constexpr std::size_t kDayDigits = 5;

std::string ofDay(int count) { return zeroPadded(count, kDayDigits); }

Fields numberAndCount(const Machine& machine, DocumentKind kind) {
  return {documentNumber(machine.memory.last().of(kind)),
          ofDay(machine.memory.today().of(kind).count)};
}

Fields nonFiscalCounters(const Machine& machine) {
  return {documentNumber(machine.memory.last().nonFiscal), ofDay(machine.memory.today().nonFiscal)};
}

// The fields with which both layouts begin.
Fields cashierAndSales(const Machine& machine) {
  Fields fields = {"S1" + zeroPadded(machine.configuration.cashier, 2),
                   money(machine.memory.today().of(DocumentKind::Invoice).total)};
  append(fields, numberAndCount(machine, DocumentKind::Invoice));
  return fields;
}

Fields longCounters(const Machine& machine) {
  const LastNumbers& last = machine.memory.last();
  Fields fields = cashierAndSales(machine);
  append(fields, numberAndCount(machine, DocumentKind::DebitNote));
  append(fields, numberAndCount(machine, DocumentKind::CreditNote));
  append(fields, nonFiscalCounters(machine));
  append(fields,
         {zReportNumber(last.reports), zReportNumber(last.zReports), machine.configuration.rif,
          machine.configuration.serial, wireTime(machine.now()), wireDate(machine.now())});
  return fields;
}

Fields shortCounters(const Machine& machine) {
  const LastNumbers& last = machine.memory.last();
  Fields fields = cashierAndSales(machine);
  append(fields, nonFiscalCounters(machine));
  append(fields,
         {zReportNumber(last.zReports), zReportNumber(last.reports), machine.configuration.rif,
          machine.configuration.serial, wireDate(machine.now()), wireTime(machine.now())});
  append(fields, numberAndCount(machine, DocumentKind::CreditNote));
  return fields;
}

// What is open: 0 nothing, 1 invoice, 2 debit note, 3 credit note, 4 non-fiscal document.
int stateOf(const Machine& machine) {
  constexpr int kNonFiscal = 4;
  if (machine.document) {
    return static_cast<int>(machine.document->kind()) + 1;
  }
  return machine.isNonFiscalOpen ? kNonFiscal : 0;
}

std::string flagRow(const Configuration& configuration) {
  std::string row;
  for (const int flag : configuration.flags) {
    row += zeroPadded(flag, 2);
  }
  return row;
}

}  // namespace

std::string statusBytes(const Machine& machine) {
  constexpr int kTraining = 64;
  constexpr int kFiscal = 96;
  constexpr int kMemoryFull = 104;
  int status = machine.isMemoryFull ? kMemoryFull : kFiscal;
  status = machine.isTraining ? kTraining : status;
  status += machine.document ? 1 : 0;
  status += machine.isNonFiscalOpen ? 2 : 0;
  return {static_cast<char>(status), static_cast<char>(machine.error)};
}

std::string countersReply(const Machine& machine) {
  return joined(machine.configuration.model.counters == CountersLayout::Long
                    ? longCounters(machine)
                    : shortCounters(machine));
}

std::string ratesReply(const Machine& machine) {
  Fields fields;
  for (const Rate& rate : machine.configuration.rates) {
    fields.push_back(wireRate(rate));
  }
  if (machine.configuration.igtf) {
    fields.push_back(wireRate(*machine.configuration.igtf));
  }
  fields.push_back(flagRow(machine.configuration));
  return joined(fields);
}

std::string documentReply(const Machine& machine) {
  const Document none(DocumentKind::Invoice, machine.configuration.rates, std::nullopt);
  const Document& document = machine.document ? *machine.document : none;
  const Totals totals = document.totals();
  Amount bases = 0;
  for (const TaxedAmount& sum : totals.byRate) {
    bases += sum.base;
  }
  return joined({"S2 " + money(bases), money(totals.total - bases), money(totals.total),
                 plainQuantity(document.quantity()), money(document.left()),
                 std::to_string(document.payments().size()), std::to_string(stateOf(machine))});
}

std::string paymentsReply(const Machine& machine) {
  const Day& today = machine.memory.today();
  Fields fields;
  for (std::size_t method = 0; method < kPaymentMethods; ++method) {
    fields.push_back(money(today.of(DocumentKind::Invoice).payments.at(method) +
                           today.of(DocumentKind::DebitNote).payments.at(method)));
  }
  fields.front().insert(0, "S4");
  return joined(fields);
}

}  // namespace corvid::simulator
